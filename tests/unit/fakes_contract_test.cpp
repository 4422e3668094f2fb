// The fakes keep what their ports promise.
#include <vector>

#include "tests/contract/settings_contract.h"
#include "tests/contract/timer_contract.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_services.h"

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

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SettingsContract, FakeSettingsMaker);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, TimerContract, FakeTimerMaker);

}  // namespace corvane::contract
