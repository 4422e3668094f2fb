#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/requests/page_notices.h"
#include "platform/linux/web/requests/permission_book.h"
#include "platform/linux/web/requests/question_desk.h"

namespace corvane::desktop {

/// Answers what pages of one view ask to be allowed: where the user is, camera,
/// notifications ... Refused unless the user allows it, once or for the site.
/// However often a page asks, the user is asked once; a refusal holds in this
/// view until the user goes somewhere else.
class Permissions {
 public:
  Permissions(PermissionBook& book, QuestionDesk& desk, PageNotices& notices);

  /// `address` is the page's.
  void Decide(WebKitPermissionRequest* request, const std::string& address);
  /// Another page is shown.
  void Reset();
  /// The user asked for a page: what was refused before may be asked again.
  void Forget() { decided_.clear(); }

 private:
  using Key = std::pair<std::string, std::string>;  // site and kind

  void Answered(const Key& key, const std::optional<DialogAnswer>& reply);

  PermissionBook& book_;
  QuestionDesk& desk_;
  PageNotices& notices_;
  std::map<Key, bool> decided_;
  std::map<Key, std::vector<ObjectPtr<WebKitPermissionRequest>>> asked_;
};

}  // namespace corvane::desktop
