#include "platform/linux/speech/pace_clock.h"

#include <chrono>

namespace corvane::desktop {
namespace {

class RealClock : public PaceClock {
 public:
  double Now() override {
    return std::chrono::duration<double>(Steady::now().time_since_epoch()).count();
  }

  void WaitUntil(double time, std::unique_lock<std::mutex>& lock, std::condition_variable& wake,
                 const std::function<bool()>& woken) override {
    const auto since_start =
        std::chrono::duration_cast<Steady::duration>(std::chrono::duration<double>(time));
    wake.wait_until(lock, Steady::time_point(since_start), woken);
  }

 private:
  using Steady = std::chrono::steady_clock;
};

}  // namespace

std::unique_ptr<PaceClock> MakeRealClock() { return std::make_unique<RealClock>(); }

}  // namespace corvane::desktop
