#pragma once

#include <webkit2/webkit2.h>

#include <set>
#include <string>

#include "platform/linux/web/requests/page_notices.h"
#include "platform/linux/web/requests/question_desk.h"

namespace corvane::desktop {

/// Asks the user for the name and the password that a server wants. They are
/// kept for the session at most. What the user does not want to answer is not
/// asked again by the same page.
class HttpLogin {
 public:
  HttpLogin(QuestionDesk& desk, PageNotices& notices);

  void Ask(WebKitAuthenticationRequest* request);
  /// Another page is asked for.
  void Reset() { given_up_.clear(); }

 private:
  QuestionDesk& desk_;
  PageNotices& notices_;
  std::set<std::string> given_up_;  // servers and their realms
};

}  // namespace corvane::desktop
