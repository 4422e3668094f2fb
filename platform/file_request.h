#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// Files that a page, or a command that works on it, wants the user to choose.
struct FileRequest {
  enum class Kind { Open, Save };

  Kind kind = Kind::Open;
  std::string title;  ///< of the dialog
  std::string name;   ///< the path proposed, of a single file; empty for none
  /// As OpenFileName::filter.
  std::string filter;
  std::string default_extension;
  bool several = false;  ///< more than one may be chosen
  /// To be called once, at any time, with the paths; with none when the user has
  /// chosen nothing. Letting go of it without a call means the same.
  std::function<void(const std::vector<std::string>& paths)> chosen;
};

}  // namespace corvane
