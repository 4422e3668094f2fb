#pragma once

#include <functional>
#include <string>

#include "base/event.h"
#include "platform/engine.h"
#include "platform/page_words.h"
#include "platform/web_browser.h"
#include "web/requests/Allowance.h"
#include "web/requests/PageNotices.h"

namespace corvane {

/// What a page's scripts make of the page without loading anything, as far as it
/// follows something that the user did in the page: another page under another
/// address, another place in it, new text, a part that opens or appears. Without this the user
/// would press Enter and hear nothing.
class PageChanges {
 public:
  struct Host {
    /// The view shows what is another page to its user: it is to be read.
    std::function<void()> read;
    /// Speaks a text.
    std::function<void(const std::string&)> say;
    /// The same of a part that has opened.
    std::function<void(const std::string&, PageWords::Opened)> opened;
    /// The user has been led to another place in the page.
    std::function<void(const PagePlace&)> place;
  };
  /// `notices`: of the view; for what any page could bring about at any time.
  PageChanges(Engine& engine, PageNotices& notices, Host host);

  /// Goes to a place in the page as the link with that address would, and tells of it.
  /// `refused` is called instead where the page runs no scripts.
  void Jump(const std::string& address, std::function<void()> refused);

 private:
  void TellPlace(const std::string& text);
  void Receive(const std::string& kind, const std::string& text);

  // A person does not do more than this; a page process gone bad might say so.
  static constexpr int kMost = 40;
  static constexpr int kSeconds = 60;

  Engine& engine_;
  PageNotices& notices_;
  Host host_;
  Allowance allowance_{kMost, kSeconds};
  Connection messages_;
};

}  // namespace corvane
