#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/life.h"
#include "platform/other_programs.h"
#include "web/requests/OutsideLinks.h"
#include "web/requests/PageDialogs.h"
#include "web/requests/PageNotices.h"
#include "web/requests/Permissions.h"
#include "web/requests/QuestionDesk.h"
#include "web/requests/SignIn.h"

namespace corvane {

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
  };

  /// Whom they are put to.
  struct Desks {
    std::shared_ptr<Questions> questions;
    std::shared_ptr<ScriptDialogs> alerts;
    std::shared_ptr<OtherPrograms> programs;
    PermissionBook& book;
  };

  /// `page`: as DialogQuestion::asker.
  PageRequests(const Desks& desks, void* page, Host host);
  ~PageRequests();
  PageRequests(const PageRequests&) = delete;
  PageRequests& operator=(const PageRequests&) = delete;

  std::string Address() const { return host_.address(); }
  void Show(std::unique_ptr<ScriptDialog> dialog);
  void Decide(const PermissionWish& wish, Permissions::Answer answer);
  void AskToSignIn(const SignInWish& wish, SignIn::Answer answer);
  /// A server wants a certificate of the user's.
  void RefuseCertificate();
  void AskToPrint();
  void ShownInFull(bool full);

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
  // Answers that come after the view has gone find it gone.
  Life life_;
  void* page_;
  Host host_;
  PageNotices notices_;
  QuestionDesk desk_;
  PageDialogs dialogs_;
  Permissions permissions_;
  SignIn sign_in_;
  OutsideLinks outside_;
  bool may_open_window_ = true;
};

}  // namespace corvane
