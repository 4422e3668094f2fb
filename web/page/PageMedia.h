#pragma once

#include <functional>
#include <string>

#include "base/event.h"
#include "platform/engine.h"
#include "web/requests/PageNotices.h"

namespace corvane {

/// The sound of a view's pages: whether they may begin with it by themselves, and whether
/// they are heard at all.
class PageMedia {
 public:
  struct Host {
    /// Whether a page that is loaded now may not begin to sound by itself; may be empty.
    std::function<bool()> holds_back;
    /// A page begins to sound; may be empty.
    std::function<void()> sounds;
    /// Speaks a sentence.
    std::function<void(const std::string&)> say;
  };
  /// All must outlive this object.
  PageMedia(Engine& engine, PageNotices& notices, Host host);

  /// Another page is shown.
  void PageChanged() { told_ = false; }
  /// Takes the sound from the view's pages, or gives it back, and says so.
  void SwitchMuted();

 private:
  void TellHeldBack();

  Engine& engine_;
  PageNotices& notices_;
  Host host_;
  bool held_ = false;  // of the page that was loaded last
  bool told_ = false;  // of this page
  Connections connections_;
};

}  // namespace corvane
