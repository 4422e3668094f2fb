#include "app/MenuCommands.h"

#include "base/handling.h"
#include "speech/MSAgent.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr int kPaneStatusFeedback = 9;  // the pane's command number

}  // namespace

MenuCommands::MenuCommands(MainMenu& menu, ctlWebBrowser& pane, Host& host)
    : menu_(menu), pane_(pane), host_(host) {
  const auto connect = [this](MenuArray& array, void (MenuCommands::*handler)(int)) {
    connections_ += array.Click.Connect([this, &array, handler](int index) {
      if (array(index).Enabled()) (this->*handler)(index);
    });
  };
  connect(menu_.mnuFileItem, &MenuCommands::mnuFileItem_Click);
  connect(menu_.mnuSettings, &MenuCommands::mnuSettings_Click);
  connect(menu_.mnuSideBarContent, &MenuCommands::mnuSideBarContent_Click);
  connect(menu_.mnuTextHistory, &MenuCommands::mnuTextHistory_Click);
  connect(menu_.mnuHome, &MenuCommands::mnuHome_Click);
  connect(menu_.mnuFocus, &MenuCommands::mnuFocus_Click);
  connect(menu_.mnuSpeech, &MenuCommands::mnuSpeech_Click);
  connect(menu_.mnuRate, &MenuCommands::mnuRate_Click);
  connect(menu_.mnuPitch, &MenuCommands::mnuPitch_Click);
  DisableWhatIsMissing();
  menu_.mnuSpeech(kSpeechKeyEcho).SetEnabled(false);
}

void MenuCommands::DisableWhatIsMissing() {
  for (int i : {kFileNewWindow, kFileOpenWebSite, kFileOpen, kFileSaveAs, kFilePrint}) {
    menu_.mnuFileItem(i).SetEnabled(false);
  }
  for (const MenuArray* array : {&menu_.mnuEdit, &menu_.mnuGo, &menu_.mnuView, &menu_.mnuHelp}) {
    for (int i = 0; i < array->Count(); ++i) (*array)(i).SetEnabled(false);
  }
  menu_.mnuSettings(kSettingsEngine).SetEnabled(false);
}

bool MenuCommands::Toggle(MenuItem& item, const std::string& key) {
  const bool checked = !item.Checked();
  item.SetChecked(checked);
  ErrorsIgnored([&] { host_.SaveSetting(key, checked ? "True" : "False"); });
  return checked;
}

void MenuCommands::mnuFileItem_Click(int index) {
  if (index == kFileExit) ErrorsIgnored([&] { host_.Unload(); });
}

void MenuCommands::mnuSettings_Click(int index) {
  if (index != kSettingsStatusFeedback) return;
  ErrorsIgnored([&] { Toggle(menu_.mnuSettings(kSettingsStatusFeedback), "StatusChange"); },
                [&] { pane_.cmdAction(kPaneStatusFeedback); });
}

void MenuCommands::mnuSideBarContent_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuSideBarContent);
  ErrorsIgnored([&] { pane_.mnuSideBarContent_Click(index); });
}

void MenuCommands::mnuTextHistory_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuTextHistory);
  ErrorsIgnored([&] { pane_.mnuTextHistory_Click(index); });
}

void MenuCommands::mnuHome_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuHome);
  ErrorsIgnored([&] { pane_.mnuHome_Click(index); });
}

void MenuCommands::mnuFocus_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuFocus);
  ErrorsIgnored([&] { pane_.mnuFocus_Click(index); });
}

void MenuCommands::mnuSpeech_Click(int index) {
  MenuItem& echo = menu_.mnuSpeech(kSpeechKeyEcho);
  if (index == kSpeechEnable) {
    ErrorsIgnored([&] {
      const bool on = Toggle(menu_.mnuSpeech(kSpeechEnable), "Speech");
      // Echo is nothing without speech; rate and pitch can be chosen beforehand.
      echo.SetEnabled(on);
      auto& service = Required(host_.MainApp());
      if (on) {
        service.SpeechInit();
        service.KeyBoardEcho(echo.Checked());
      } else {
        service.SpeechTerminate();
      }
    });
  } else if (index == kSpeechKeyEcho) {
    ErrorsIgnored([&] {
      const bool on = Toggle(echo, "KeyEcho");
      if (SpeechEnabled()) Required(host_.MainApp()).KeyBoardEcho(on);
    });
  }
}

void MenuCommands::mnuRate_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuRate);
  ErrorsIgnored([&] { host_.SaveSetting("Rate", std::to_string(index)); },
                [&] {
                  if (SpeechEnabled())
                    Required(Required(host_.MainApp()).gMSAgent()).SetRate(index);
                });
}

void MenuCommands::mnuPitch_Click(int index) {
  pane_.MenuToggleCheck(index, menu_.mnuPitch);
  ErrorsIgnored([&] { host_.SaveSetting("Pitch", std::to_string(index)); },
                [&] {
                  if (SpeechEnabled())
                    Required(Required(host_.MainApp()).gMSAgent()).SetPitch(index);
                });
}

}  // namespace corvane
