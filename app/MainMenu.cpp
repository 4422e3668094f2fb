#include "app/MainMenu.h"

#include <map>

#include "speech/MenuWords.h"

namespace corvane {

namespace {

/// Captions that part with the manner.
struct Captions {
  const char* settings;
  const char* help;
  const char* engine_options;
  const char* engine_home;
};
constexpr Captions kEstablished = {"Settin&gs", "Help", "&IE Settings", "Use Explorer's"};
// Every title has a letter of its own, and nothing is named after another program.
constexpr Captions kToday = {"&Settings", "&Help", "Web Opt&ions", "Use Start Page of Web Options"};

}  // namespace

MainMenu::MainMenu(Desktop& desktop, const Manner& manner) : bar_(desktop.CreateMenu()) {
  const Captions& captions = manner.today ? kToday : kEstablished;
  for (const char* title :
       {"&File", "&Edit", "&Go", captions.settings, "&View", "Spee&ch", captions.help}) {
    mnuFile.Append(bar_->Add(title));
  }
  mnuFileItem.AppendAll(mnuFile(0), {"&New Window", "&Open Web Site", "Open &File", "&Save as", "-",
                                     "&Print", "-", "E&xit"});
  mnuEdit.AppendAll(mnuFile(1), {"Cu&t", "&Copy", "&Paste", "-", "Select &All"});
  mnuGo.AppendAll(mnuFile(2), {"&Back", "&Forward", "S&top", "&Refresh", "&Home", "S&earch"});
  mnuSettings.AppendAll(mnuFile(3), {captions.engine_options, "-", "Side&Bar", "&Text History",
                                     "&Home", "Auto&Focus", "-", "Enable &Status Change Feedback"});
  mnuSideBarContent.AppendAll(
      mnuSettings(kSettingsSideBar),
      {"None", "-", "Favorites", "History", "Page Structure", "Accessibility Browser"});
  mnuTextHistory.AppendAll(mnuSettings(kSettingsTextHistory),
                           {"Clear with New Page", "Never Clear"});
  mnuHome.AppendAll(mnuSettings(kSettingsHome),
                    {"None", "-", captions.engine_home, "Use Corvane's", "Last one Opened"});
  mnuFocus.AppendAll(mnuSettings(kSettingsFocus),
                     {"None", "-", "Links", "SideBar", "WebBrowser", "Text Box"});
  mnuView.AppendAll(mnuFile(4), {"&Toolbar", "&Statusbar"});
  mnuSpeech.AppendAll(mnuFile(5), {"Enable Speech", "Enable Keyboard Echo", "-", "Rate", "&Pitch"});
  mnuRate.AppendAll(mnuSpeech(kSpeechRate), {"Very Slow", "Slow", "Normal", "Fast", "Very Fast"});
  mnuPitch.AppendAll(mnuSpeech(kSpeechPitch), {"Very Low", "Low", "Normal", "High", "Very High"});
  mnuHelp.AppendAll(mnuFile(6), {"&Contents", "&About"});
  NumberItems();
}

// The spoken menu tells items apart by these numbers.
void MainMenu::NumberItems() {
  using Submenus = std::map<int, MenuArray*>;
  int next = kFirstMenuId;
  const auto number = [&next](const MenuArray& array, const Submenus& submenus = {}) {
    for (int i = 0; i < array.Count(); ++i) {
      array(i).SetId(next++);
      const auto submenu = submenus.find(i);
      if (submenu == submenus.end()) continue;
      for (int k = 0; k < submenu->second->Count(); ++k) (*submenu->second)(k).SetId(next++);
    }
  };
  number(mnuFileItem);
  number(mnuEdit);
  number(mnuGo);
  number(mnuSettings, {{kSettingsSideBar, &mnuSideBarContent},
                       {kSettingsTextHistory, &mnuTextHistory},
                       {kSettingsHome, &mnuHome},
                       {kSettingsFocus, &mnuFocus}});
  number(mnuView);
  number(mnuSpeech, {{kSpeechRate, &mnuRate}, {kSpeechPitch, &mnuPitch}});
  number(mnuHelp);
}

}  // namespace corvane
