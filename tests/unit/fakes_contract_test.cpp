// The fakes keep what their ports promise.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/contract/engine_contract.h"
#include "tests/contract/settings_contract.h"
#include "tests/contract/timer_contract.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_engine.h"
#include "tests/fakes/fake_services.h"
#include "tests/fakes/fake_time.h"

namespace corvane::contract {
namespace {

struct FakeSettingsMaker {
  fakes::FakeSettings store;
};

class FakeTimerMaker {
 public:
  static constexpr int kInterval = 100;
  Timer& Get() { return timer_; }
  void Pass() { timer_.Fire(); }

 private:
  std::vector<fakes::FakeTimer*> all_;
  fakes::FakeTimer timer_{all_};
};

/// What a test would let happen: what is loaded comes, or does not.
class FakeEngineMaker {
 public:
  fakes::FakeEngine& Get() { return *engine_; }
  void End() { engine_.reset(); }
  static std::string Page() { return "https://example.org/"; }
  static std::string Nobody() { return "https://nobody.example/"; }
  bool Wait(const std::function<bool()>& holds) {
    for (int turn = 0; turn < 100 && !holds(); ++turn) {
      if (engine_ && engine_->IsLoading()) Come(engine_->Address());
      time_.Pass(0);
    }
    return holds();
  }

 private:
  void Come(const std::string& address) {
    if (address != Nobody()) return engine_->Bring(address);
    engine_->Begin(address);
    engine_->Fail(LoadFailure::Kind::Refused);
  }

  fakes::FakeTime time_;
  std::unique_ptr<fakes::FakeEngine> engine_ = std::make_unique<fakes::FakeEngine>(time_.AsLater());
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EngineContract, FakeEngineMaker);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SettingsContract, FakeSettingsMaker);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, TimerContract, FakeTimerMaker);

}  // namespace corvane::contract
