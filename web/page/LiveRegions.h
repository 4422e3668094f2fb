#pragma once

#include <functional>
#include <string>

#include "base/event.h"
#include "base/life.h"
#include "platform/engine.h"
#include "platform/page_words.h"
#include "web/requests/Allowance.h"

namespace corvane {

/// Tells what the pages of a view say by themselves.
class LiveRegions {
 public:
  LiveRegions(Engine& engine, std::function<void(const PageWords&)> say);

  /// As WebBrowser::EnterDialog.
  bool EnterDialog(std::function<void()> gone);
  /// Another page is shown.
  void PageChanged() { dialog_waits_ = false; }

 private:
  void Receive(const std::string& text);

  // The script allows ten a second of each frame; a process gone bad might not.
  static constexpr int kMost = 300;
  static constexpr int kSeconds = 10;

  Engine& engine_;
  std::function<void(const PageWords&)> say_;
  Life entering_;              // the last way into a dialog that was asked for
  bool dialog_waits_ = false;  // it has opened without taking the focus
  Allowance allowance_{kMost, kSeconds};
  Connection messages_;
};

}  // namespace corvane
