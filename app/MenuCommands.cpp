#include "app/MenuCommands.h"

#include "app/WindowDialogs.h"
#include "base/handling.h"
#include "speech/MSAgent.h"
#include "speech/MainApp.h"

namespace corvane {
MenuCommands::MenuCommands(MainMenu& menu, ctlWebBrowser& pane, const Manner& manner, Host& host)
    : menu_(menu), pane_(pane), manner_(manner), host_(host) {
  const auto connect = [this](MenuArray& array, void (MenuCommands::*handler)(int)) {
    connections_ += array.Click.Connect([this, &array, handler](int index) {
      if (array(index).Enabled()) (this->*handler)(index);
    });
  };
  connect(menu_.mnuFileItem, &MenuCommands::mnuFileItem_Click);
  connect(menu_.mnuEdit, &MenuCommands::mnuEdit_Click);
  connect(menu_.mnuGo, &MenuCommands::mnuGo_Click);
  connect(menu_.mnuView, &MenuCommands::mnuView_Click);
  connect(menu_.mnuHelp, &MenuCommands::mnuHelp_Click);
  connect(menu_.mnuSettings, &MenuCommands::mnuSettings_Click);
  connect(menu_.mnuSideBarContent, &MenuCommands::mnuSideBarContent_Click);
  connect(menu_.mnuTextHistory, &MenuCommands::mnuTextHistory_Click);
  connect(menu_.mnuHome, &MenuCommands::mnuHome_Click);
  connect(menu_.mnuFocus, &MenuCommands::mnuFocus_Click);
  connect(menu_.mnuSpeech, &MenuCommands::mnuSpeech_Click);
  connect(menu_.mnuRate, &MenuCommands::mnuRate_Click);
  connect(menu_.mnuPitch, &MenuCommands::mnuPitch_Click);
  menu_.mnuView(kViewToolbar).SetChecked(true);
  menu_.mnuView(kViewStatusbar).SetChecked(true);
  menu_.mnuSpeech(kSpeechKeyEcho).SetEnabled(false);
}

bool MenuCommands::Toggle(MenuItem& item, const std::string& key) {
  const bool checked = !item.Checked();
  item.SetChecked(checked);
  ErrorsIgnored([&] { host_.SaveSetting(key, checked ? "True" : "False"); });
  return checked;
}

void MenuCommands::mnuFileItem_Click(int index) {
  ErrorsIgnored([&] {
    switch (index) {
      case kFileNewWindow:
        host_.NewWindow();
        break;
      case kFileOpenWebSite:
        pane_.cmdAction(ctlWebBrowser::kOpenWebSite);
        break;
      case kFileOpen:
        host_.Dialogs().OpenFile([this](const std::string& path) { pane_.Navigate(path); });
        break;
      case kFileSaveAs:
        pane_.cmdAction(ctlWebBrowser::kSaveAs);
        break;
      case kFilePrint:
        pane_.cmdAction(ctlWebBrowser::kPrintPage);
        break;
      case kFileExit:
        host_.CloseByUser();
        break;
      default:
        break;
    }
  });
}

void MenuCommands::mnuEdit_Click(int index) {
  ErrorsIgnored([&] { pane_.Edit(index); });
}

void MenuCommands::mnuGo_Click(int index) {
  ErrorsIgnored([&] { pane_.cmdToolbar_Click(index); });
}

void MenuCommands::mnuView_Click(int index) {
  if (index != kViewToolbar && index != kViewStatusbar) return;
  MenuItem& item = menu_.mnuView(index);
  const bool show = !item.Checked();
  ErrorsIgnored(
      [&] {
        if (index == kViewToolbar) {
          pane_.HideButtonToolBar(!show);
        } else {
          host_.ShowStatusBar(show);
        }
      },
      [&] { item.SetChecked(show); },
      [&] {
        if (index == kViewStatusbar) host_.Realign();
      });
}

void MenuCommands::mnuHelp_Click(int index) {
  if (index == kHelpContents) {
    ErrorsIgnored([&] {
      const std::string file = host_.HelpFile();
      if (!file.empty()) pane_.GetHelp(file);
    });
  } else if (index == kHelpAbout) {
    ErrorsIgnored([&] { host_.Dialogs().ShowAbout(host_.MainApp()); });
  }
}

void MenuCommands::mnuSettings_Click(int index) {
  if (index == kSettingsEngine) {
    ErrorsIgnored([&] { pane_.cmdAction(ctlWebBrowser::kEngineOptions); });
  } else if (index == kSettingsStatusFeedback) {
    MenuItem& item = menu_.mnuSettings(kSettingsStatusFeedback);
    ErrorsIgnored([&] { Toggle(item, "StatusChange"); },
                  [&] {
                    // The command only ever switches it on.
                    if (!manner_.today) return pane_.cmdAction(ctlWebBrowser::kStatusFeedback);
                    pane_.SetStatusFeedback(item.Checked());
                  });
  }
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
        TellRateAndPitch();
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

// A new character knows of no choice; one that others hear already keeps theirs.
void MenuCommands::TellRateAndPitch() {
  MSAgent& agent = Required(Required(host_.MainApp()).gMSAgent());
  const int rate = menu_.mnuRate.FirstChecked();
  const int pitch = menu_.mnuPitch.FirstChecked();
  if (agent.Speed() == 0 && rate >= 0) agent.SetRate(rate);
  if (agent.Pitch() == 0 && pitch >= 0) agent.SetPitch(pitch);
}

// Who says today's words; null where nobody does.
MSAgent* MenuCommands::Talker() const {
  const auto service = host_.MainApp();
  return manner_.today && SpeechEnabled() && service ? service->gMSAgent() : nullptr;
}

bool MenuCommands::SayAgain() {
  MSAgent* const talker = Talker();
  if (talker != nullptr) ErrorsIgnored([&] { talker->SayAgain(); });
  return talker != nullptr;
}

bool MenuCommands::CopySaid() {
  MSAgent* const talker = Talker();
  if (talker != nullptr) ErrorsIgnored([&] { talker->CopySaid(); });
  return talker != nullptr;
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
