#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/later.h"

namespace corvane {

/// Closing the window of a page. Only a page in which the user has done something
/// may have what would be lost, and the engine lets only such a page ask. It asks
/// once, and no page is waited for for long: no window is a trap.
class PageClosing {
 public:
  struct Host {
    std::function<void()> ask;    ///< asks the page whether it may be closed
    std::function<void()> close;  ///< closes the window
    std::function<bool()> asks;   ///< whether a question of the page is open
  };
  PageClosing(Later later, Host host) : later_(std::move(later)), host_(std::move(host)) {}

  /// As WebBrowser::MayClose, of a page that answers.
  bool May();
  /// The user has done something in the page.
  void Touched() { touched_ = true; }
  /// Who goes on working after having stayed is asked again.
  void Worked() { asked_ = false; }
  /// The user stays on the page; true when this was about closing its window.
  bool Stay();
  /// The page agrees to be closed, or, `opened_by_page`, wants it by itself.
  void Agreed(bool opened_by_page);
  /// Another page is shown.
  void PageChanged() { touched_ = asked_ = asking_ = false; }

 private:
  Later later_;
  Host host_;
  bool touched_ = false;
  bool asked_ = false;   // the next time it is not
  bool asking_ = false;  // just now
  std::shared_ptr<void> closing_;
};

}  // namespace corvane
