#include "browser/ctlWebBrowser.h"

#include "base/number.h"
#include "base/text.h"
#include "browser/AreaKeys.h"
#include "browser/EngineVersion.h"
#include "browser/ProfileValue.h"

namespace corvane {
namespace {

constexpr double kLeastEngineVersion = 4.0;
constexpr const char* kEngineMissing =
    "Internet Explorer 4.01 or greater was not found on this machine";

}  // namespace

ctlWebBrowser::ctlWebBrowser(Desktop& desktop, const Manner& manner)
    : pane_(desktop, manner),
      settings_(pane_),
      layout_(pane_, settings_),
      navigation_(pane_, settings_),
      elements_(pane_),
      links_(pane_, elements_.Announcers()),
      live_words_(pane_),
      side_bar_(pane_, settings_, layout_),
      favorites_(pane_, side_bar_),
      help_(pane_, side_bar_),
      page_in_pane_(pane_),
      acting_(pane_, page_in_pane_),
      elements_dialog_(pane_, page_in_pane_, acting_),
      quick_keys_(pane_, page_in_pane_, acting_),
      spelling_(pane_),
      echo_(pane_, page_in_pane_),
      places_(pane_, echo_),
      read_on_(pane_, page_in_pane_, echo_),
      reader_(pane_, navigation_, elements_, links_, side_bar_),
      areas_(pane_, navigation_) {
  side_bar_.LookUpElements([this] { return page_in_pane_.Map(); });
  connections_ += side_bar_.ElementChosen.Connect(
      [this](const PageElement& element) { acting_.Lead(element, ActingInText::Then::Read); });
  PaneMenu& menu = pane_.menu;
  connections_ += menu.mnuTextHistory.Click.Connect([this](int i) { mnuTextHistory_Click(i); });
  connections_ += menu.mnuHome.Click.Connect([this](int i) { mnuHome_Click(i); });
  connections_ += menu.mnuFocus().Click.Connect([this](int i) { mnuFocus_Click(i); });
  UserControl_Initialize();
}

void ctlWebBrowser::UserControl_Initialize() {
  Desktop& desktop = pane_.desktop;
  ErrorsIgnored(
      [&] {
        const std::string version = GetExplorerVersion(desktop.GetRegistry());
        if (number::leading(text::left(version, 4)) < kLeastEngineVersion) {
          desktop.GetMessageBox().Show(kEngineMissing, MessageBox::Icon::Critical);
        }
      },
      [&] { pane_.controls.ELAMain->SetVisible(true); }, [&] { layout_.SetElastics(); },
      [&] { layout_.PopulateButtons(); }, [&] { settings_.LoadSettings(); },
      [&] { layout_.CreateRebar(); });
}

// In the address box the key opens the list.
bool ctlWebBrowser::SwitchQuickKeys() {
  const bool theirs = pane_.state.area == kAreaAddress;
  if (theirs || !(pane_.manner.today || pane_.manner.quick_keys)) return false;
  quick_keys_.Switch();
  return true;
}

bool ctlWebBrowser::SayGlance() {
  if (!pane_.manner.today) return false;
  const std::string words = page_in_pane_.AtAGlance();
  pane_.announcer.Say(words.empty() ? "There is no page" : words);
  return true;
}

std::optional<std::string> ctlWebBrowser::WhatKeyDoes(const KeyEvent& key) const {
  const int area = pane_.state.area;
  if (area == kAreaText) {
    if (auto words = quick_keys_.WhatDoes(key)) return words;
  }
  return WhatKeyOfAreaDoes(area, key);
}

bool ctlWebBrowser::SpellWord() {
  if (pane_.manner.today) spelling_.SpellWord();
  return pane_.manner.today;
}

bool ctlWebBrowser::SpellLine() {
  if (pane_.manner.today) spelling_.SpellLine();
  return pane_.manner.today;
}

bool ctlWebBrowser::ShowElements(Form& owner) {
  if (!pane_.manner.today) return false;
  ErrorsIgnored([&] { elements_dialog_.Show(owner); });
  return true;
}

void ctlWebBrowser::Terminate() {
  ErrorsIgnored([&] { reader_.Stop(); }, [&] { layout_.DestroyRebar(); },
                [&] { layout_.ReleaseRebar(); }, [&] { pane_.status.Release(); },
                [&] { side_bar_.Close(); }, [&] { pane_.announcer.SetSpeechNotify(nullptr); });
}

ctlWebBrowser::~ctlWebBrowser() {
  ErrorsIgnored([&] { settings_.Save("StartingAddress", pane_.state.strAddress); },
                [&] { layout_.DestroyRebar(); }, [&] { layout_.ReleaseRebar(); },
                [&] { pane_.status.Release(); });
}

std::string ctlWebBrowser::VBGetPrivateProfileString(const std::string& section,
                                                     const std::string& key,
                                                     const std::string& file) const {
  return ProfileValue(pane_.desktop.GetFileSystem(), section, key, file);
}

}  // namespace corvane
