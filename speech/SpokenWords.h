#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace corvane {

/// What has been said last, for whoever wants to hear it again. It is kept in memory and
/// nowhere else.
class SpokenWords {
 public:
  static constexpr std::size_t kMost = 50;  ///< messages that are kept

  /// Something is being said.
  void Add(const std::string& text);
  /// The message before the one that the last call led to, or the last one of all when
  /// something has been said since; null when there is none before it.
  const std::string* Back();
  /// What Back() led to, or the last one of all when something has been said since; null
  /// when nothing has been said yet.
  const std::string* Present() const;

 private:
  std::deque<std::string> messages_;  // the newest first
  std::size_t back_ = 0;              // how many steps have been made since
};

}  // namespace corvane
