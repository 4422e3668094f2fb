#include "web/page/LiveRegions.h"

#include <utility>

#include "web/page/WordsRecord.h"

namespace corvane {

LiveRegions::LiveRegions(Engine& engine, std::function<void(const PageWords&)> say)
    : engine_(engine),
      say_(std::move(say)),
      messages_(engine.Message.Connect(
          [this](const auto& channel, const auto& kind, const std::string& text) {
            if (channel == "corvaneLive" && kind == "live") Receive(text);
          })) {}

// Its element has the page's focus before the page gets the window's, so that nothing
// else of the page is told on the way.
bool LiveRegions::EnterDialog(std::function<void()> gone) {
  const auto wanted = entering_.Renew();
  if (!std::exchange(dialog_waits_, false)) return false;
  engine_.Evaluate("corvaneLive.enter()",
                   [this, wanted, gone = std::move(gone)](const auto& entered) {
                     if (!wanted) return;  // the user has gone on
                     if (!entered) return gone();
                     engine_.TakeFocus();
                   });
  return true;
}

void LiveRegions::Receive(const std::string& text) {
  if (!allowance_.Take()) return;
  const auto words = ParsePageWords(text);
  if (!words) return;
  dialog_waits_ = dialog_waits_ || !words->dialog.empty();
  say_(*words);
}

}  // namespace corvane
