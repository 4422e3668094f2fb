#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/file_request.h"
#include "platform/linux/web/requests/http_login.h"
#include "platform/linux/web/requests/outside_links.h"
#include "platform/linux/web/requests/page_dialogs.h"
#include "platform/linux/web/requests/page_notices.h"
#include "platform/linux/web/requests/permissions.h"
#include "platform/linux/web/requests/question_desk.h"

namespace corvane::desktop {

class WebEngine;

/// What the pages of one view want from the user, and what becomes of it: their
/// scripts' dialogs, permissions, passwords, addresses for other programs.
class PageRequests {
 public:
  struct Host {
    /// The address of the page shown.
    std::function<std::string()> address;
    /// A text for the status bar.
    std::function<void(const std::string&)> status;
    /// A sentence for the user to hear.
    std::function<void(const std::string&)> say;
    /// Whether a dialog holds the page now, which then does not answer.
    std::function<void(bool)> hold;
    /// The user was about to leave the page and stays.
    std::function<void()> stay;
    /// The page is to be printed.
    std::function<void()> print;
    /// The page wants files.
    std::function<void(const FileRequest&)> files;
  };

  PageRequests(WebEngine& engine, WebKitWebView* view, Host host);
  ~PageRequests();
  PageRequests(const PageRequests&) = delete;
  PageRequests& operator=(const PageRequests&) = delete;

  /// Another page is shown, or the page's process is gone.
  void PageChanged();
  /// See PageDialogs::LetLeave.
  void LetLeave(bool lets) { dialogs_.LetLeave(lets); }
  /// The user asked for a page, with the address box or a command.
  void UserAskedForPage();
  /// The user pressed a key or a button in the page.
  void UserActed() { may_open_window_ = true; }

  /// Whether a page may open a window now: one for each thing the user does.
  /// What is refused is told.
  bool MayOpenWindow(bool user_gesture);
  /// The page, or the user, wants an address that other programs open.
  void OpenOutside(const std::string& address, bool user_gesture);

  PageNotices& Notices() { return notices_; }
  QuestionDesk& Desk() { return desk_; }

 private:
  void AskToPrint();

  // Answers that come after the view has gone find it gone.
  std::shared_ptr<PageRequests*> self_ = std::make_shared<PageRequests*>(this);
  Host host_;
  PageNotices notices_;
  QuestionDesk desk_;
  PageDialogs dialogs_;
  Permissions permissions_;
  HttpLogin login_;
  OutsideLinks outside_;
  WebKitWebView* view_;
  bool may_open_window_ = true;
};

}  // namespace corvane::desktop
