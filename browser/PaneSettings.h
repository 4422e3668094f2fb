#pragma once

#include <string>

#include "browser/PaneContext.h"

namespace corvane {

/// The pane's own keys in the settings store.
inline constexpr const char* kPaneApplication = "pnlBrowser";
inline constexpr const char* kSettingsSection = "Settings";

/// Reads and writes the pane's options and keeps its menu's check marks.
class PaneSettings {
 public:
  explicit PaneSettings(PaneContext& pane);

  /// Reads splitter ratios and start address. A first run starts the side bar at
  /// half of the width, or at a quarter where it fills the screen; a stored 0 is a
  /// quarter.
  void LoadSettings();
  void Save(const std::string& key, const std::string& value);

  /// Checks the item at `index` and unchecks the others of the array.
  void MenuToggleCheck(MenuArray& menu, int index);

  void mnuFocus_Click(int index);
  void mnuHome_Click(int index);
  void mnuTextHistory_Click(int index);
  /// Stores the side bar's content; showing it is the side bar's work.
  void mnuSideBarContent_Click(int index);

 private:
  std::string Get(const std::string& key, const std::string& fallback) const;
  float Ratio(const std::string& key, const std::string& second_default) const;
  void Choose(MenuArray& menu, int index, const std::string& key);

  PaneContext& pane_;
};

}  // namespace corvane
