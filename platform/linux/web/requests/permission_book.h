#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::desktop {

/// What sites may do, as the user has decided for good: kept in a file, one
/// section a site. What cannot be written holds until the program ends.
class PermissionBook {
 public:
  /// `path` empty: nothing is kept on disk.
  explicit PermissionBook(std::string path);

  /// The decision for a kind of permission ("camera") of a site
  /// ("https://example.org"); none when there is none.
  std::optional<bool> Find(const std::string& site, const std::string& kind) const;
  /// False when the decision could not be written.
  bool Decide(const std::string& site, const std::string& kind, bool allowed);
  /// One decision.
  struct Decision {
    std::string site;
    std::string kind;
    bool allowed = false;
  };
  /// All decisions, by site and kind.
  std::vector<Decision> List() const;
  /// Takes a decision back: the site is to ask again. False when that could not be
  /// written; then it comes back with the program's next start.
  bool Forget(const std::string& site, const std::string& kind);

 private:
  bool Save() const;

  std::string path_;
  std::map<std::pair<std::string, std::string>, bool> decisions_;
};

}  // namespace corvane::desktop
