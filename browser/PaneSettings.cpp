#include "browser/PaneSettings.h"

#include "base/number.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

constexpr const char* kDefaultRatio = "0.25";
constexpr const char* kFirstRunSplitter = "0.5";

}  // namespace

PaneSettings::PaneSettings(PaneContext& pane) : pane_(pane) {}

std::string PaneSettings::Get(const std::string& key, const std::string& fallback) const {
  return pane_.desktop.GetSettings().GetSetting(kPaneApplication, kSettingsSection, key, fallback);
}

void PaneSettings::Save(const std::string& key, const std::string& value) {
  pane_.desktop.GetSettings().SaveSetting(kPaneApplication, kSettingsSection, key, value);
}

// The key is read twice, the second time with its own default: that is how a
// first run gets another ratio than a stored 0. What is no fraction of a width
// would hide one side of the splitter for good and counts as 0.
float PaneSettings::Ratio(const std::string& key, const std::string& second_default) const {
  const auto usable = [](double ratio) { return ratio > 0 && ratio < 1; };
  if (!usable(number::leading(Get(key, kDefaultRatio)))) return number::to_single(kDefaultRatio);
  return static_cast<float>(number::leading(Get(key, second_default)));
}

void PaneSettings::LoadSettings() {
  // A page that gets half of the width only shows a narrow form of itself.
  const char* first = pane_.manner.whole_screen ? kDefaultRatio : kFirstRunSplitter;
  ErrorsIgnored([&] { pane_.state.sngSplitter = Ratio("Splitter", first); },
                [&] { pane_.state.sngSplitterH = Ratio("SplitterH", kDefaultRatio); },
                [&] { pane_.state.strAddress = Get("StartingAddress", ""); });
}

void PaneSettings::MenuToggleCheck(MenuArray& menu, int index) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "MenuToggleCheck Error: ", [&] {
    for (int i = 0; i < menu.Count(); ++i) menu(i).SetChecked(false);
    menu(index).SetChecked(true);
  });
}

void PaneSettings::Choose(MenuArray& menu, int index, const std::string& key) {
  ErrorsIgnored([&] { MenuToggleCheck(menu, index); }, [&] { Save(key, std::to_string(index)); });
}

void PaneSettings::mnuFocus_Click(int index) { Choose(pane_.menu.mnuFocus(), index, "Focus"); }

void PaneSettings::mnuHome_Click(int index) { Choose(pane_.menu.mnuHome, index, "Home"); }

void PaneSettings::mnuTextHistory_Click(int index) {
  Choose(pane_.menu.mnuTextHistory, index, "TextHistory");
}

void PaneSettings::mnuSideBarContent_Click(int index) {
  Choose(pane_.menu.mnuSideBarContent, index, "SideBar");
}

}  // namespace corvane
