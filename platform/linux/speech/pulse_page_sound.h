#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/page_sound.h"

namespace corvane::desktop {

/// The sound of pages at the sound server. Pages sound in processes of their own, in which
/// process numbers mean nothing outside; they inherit a name for their streams from this
/// process's environment, by which those are found. The server is reached on a thread of
/// libpulse's, and only from the first page on that sounds.
class PulsePageSound : public PageSound {
 public:
  /// Before the first process of pages. `server` as for PulseOutput.
  explicit PulsePageSound(const std::string& server = "");
  ~PulsePageSound() override;
  PulsePageSound(const PulsePageSound&) = delete;
  PulsePageSound& operator=(const PulsePageSound&) = delete;

  void HoldBackWhile(std::function<bool()> held) override { held_ = std::move(held); }
  void SetLevel(int percent) override;

  /// Whether a page that is loaded now may not begin to sound by itself.
  bool HoldsBack() const { return held_ && held_(); }
  /// A page begins to sound.
  void PageSounds();

 private:
  class Link;

  std::string server_;
  std::function<bool()> held_;
  int level_ = 100;
  std::unique_ptr<Link> link_;  // none: no page has sounded yet
};

}  // namespace corvane::desktop
