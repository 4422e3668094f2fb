#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "web/requests/PageNotices.h"
#include "web/requests/PermissionBook.h"
#include "web/requests/QuestionDesk.h"

namespace corvane {

/// Something that a page wants to be allowed.
struct PermissionWish {
  std::string site;  ///< "https://example.org"; empty: none that a decision could hold for
  /// "location", "notifications", "screen", "camera", "microphone", "camera and
  /// microphone", "devices", "pointer", "clipboard", "protected media", "data"; anything
  /// else is never allowed.
  std::string kind;
  std::string of = {};  ///< data: the site that has stored it
};

/// Answers what pages of one view ask to be allowed: where the user is, camera,
/// notifications ... Refused unless the user allows it, once or for the site.
/// However often a page asks, the user is asked once; a refusal holds in this
/// view until the user goes somewhere else.
class Permissions {
 public:
  using Answer = std::function<void(bool allowed)>;

  Permissions(PermissionBook& book, QuestionDesk& desk, PageNotices& notices);

  /// `address` is the page's.
  void Decide(const PermissionWish& wish, const std::string& address, Answer answer);
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
  std::map<Key, std::vector<Answer>> asked_;
};

}  // namespace corvane
