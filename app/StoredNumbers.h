#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/manner.h"
#include "controls/MenuArray.h"
#include "platform/settings_store.h"

namespace corvane {

/// The numbers of the settings store, as the windows take them. One that lies
/// outside of what it can mean counts as its default, and so does, in today's
/// manner, a text that is no number; both are noted down to be reported. In the
/// established manner such a text raises the error of its conversion.
class StoredNumbers {
 public:
  /// The least and the most that a number can mean.
  struct Range {
    float least;
    float most;
  };

  /// Both must outlive this object.
  StoredNumbers(const SettingsStore& store, const Manner& manner)
      : store_(store), manner_(manner) {}

  /// A place or size of a window, in twips.
  float Twips(const std::string& key, const std::string& fallback, Range range);
  /// The index of a choice in its menu.
  int Choice(const std::string& application, const std::string& key, const std::string& fallback,
             const MenuArray& menu);

  /// Notes that a setting's stored value cannot be used.
  void Note(const std::string& key);
  /// Sentences that tell the user of all that was noted since the last call; empty
  /// when there is nothing. Each setting is told once while the program runs.
  std::string TakeReport();

 private:
  template <class Convert, class Usable>
  auto Read(const std::string& application, const std::string& key, const std::string& fallback,
            Convert convert, Usable usable);

  const SettingsStore& store_;
  const Manner& manner_;
  std::vector<std::string> noted_;
  std::set<std::string> told_;
};

}  // namespace corvane
