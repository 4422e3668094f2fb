#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// What sites may do, as the user has decided for good: kept in a file, one
/// section a site. What cannot be written holds until the program ends.
class PermissionBook {
 public:
  /// Replaces a file whole; false when that is not possible.
  using Write = std::function<bool(const std::string& path, const std::string& content)>;

  /// `path` empty: nothing is kept on disk.
  PermissionBook(std::string path, Write write);

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
  Write write_;
  std::map<std::pair<std::string, std::string>, bool> decisions_;
};

}  // namespace corvane
