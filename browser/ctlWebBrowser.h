#pragma once

#include <optional>
#include <string>

#include "browser/CaretEcho.h"
#include "browser/FavoriteCommands.h"
#include "browser/HelpOutline.h"
#include "browser/LinksList.h"
#include "browser/LiveWords.h"
#include "browser/Navigation.h"
#include "browser/PageElements.h"
#include "browser/PageReader.h"
#include "browser/PaneAreas.h"
#include "browser/PaneContext.h"
#include "browser/PaneLayout.h"
#include "browser/PaneSettings.h"
#include "browser/Places.h"
#include "browser/ReadOn.h"
#include "browser/SideBar.h"
#include "browser/reading/ActingInText.h"
#include "browser/reading/ElementsDialog.h"
#include "browser/reading/PageInPane.h"
#include "browser/reading/QuickKeys.h"
#include "browser/reading/Spelling.h"

namespace corvane {

/// The browser pane: the working area of a browser window. Its host drives it
/// through these operations; the work is done by its collaborators.
class ctlWebBrowser {
 public:
  /// `manner` must outlive the pane.
  explicit ctlWebBrowser(Desktop& desktop, const Manner& manner = kEstablishedManner);
  /// Saves the start address.
  ~ctlWebBrowser();
  ctlWebBrowser(const ctlWebBrowser&) = delete;
  ctlWebBrowser& operator=(const ctlWebBrowser&) = delete;

  /// The frame that fills the pane, for the host's window.
  ElasticFrame& Frame() { return *pane_.controls.ELAMain; }
  /// The address that is shown in place of the start page; empty for that. Once,
  /// before Show.
  void StartWith(const std::string& url) { pane_.state.strFirstAddress = url; }
  /// The host has become visible; the first time starts the page-reading tick.
  void Show() { layout_.UserControl_Show(); }
  /// Takes the host's status bar, or null when it has none (any more).
  void SetStatusBar(StatusBar* bar) { pane_.status.SetStatusBar(bar); }
  /// The sink through which the pane speaks; null silences it.
  void SetSpeechNotify(ISpeechNotify* sink) { pane_.announcer.SetSpeechNotify(sink); }
  /// Lets the host's auto focus menu decide instead of the pane's own.
  void MirrorFocusMenu(MenuArray& host) { pane_.menu.MirrorFocus(host); }
  /// Shut-down; the host calls it before it unloads.
  void Terminate();

  /// Numbers of cmdAction that a host sends.
  enum Action : int {
    kSaveAs = kActionSaveAs,
    kPrintPage = kActionPrint,
    kEngineOptions = kActionEngineOptions,
    kFocusAddress = kActionFocusAddress,
    kOpenWebSite = kActionOpenWebSite,
    kStatusFeedback = kActionStatusFeedback,
  };

  void Navigate(const std::string& url) { navigation_.Navigate(url); }
  /// Finds in the page, zooms.
  void PageCommand(WebBrowser::PageCommand command) {
    ErrorsIgnored([&] { pane_.controls.brwWebBrowser->Do(command); });
  }
  /// Shows what has come from the network.
  void ShowDownloads() { pane_.desktop.ShowDownloads(); }
  void cmdAction(int action) { navigation_.cmdAction(action); }
  /// Whether status texts are spoken.
  void SetStatusFeedback(bool on) { navigation_.SetStatusFeedback(on); }
  void Edit(int action) { navigation_.Edit(action); }
  void cmdToolbar_Click(int index) { navigation_.cmdToolbar_Click(index); }
  /// Goes round the pane's areas.
  void NextArea() { areas_.Next(); }
  void PreviousArea() { areas_.Previous(); }
  /// Goes round the bars between the areas.
  void NextSplitter() { layout_.NextSplitter(); }
  void PreviousSplitter() { layout_.PreviousSplitter(); }
  /// Reads the text pane aloud from its caret on.
  void ReadOn() { read_on_.Start(); }
  /// Whether the key leads to and fro in what is being read aloud.
  bool StepsInReading(int key_code) const {
    const bool is_arrow = key_code >= kKeyLeft && key_code <= kKeyDown;
    return is_arrow && pane_.manner.today && read_on_.IsReading();
  }
  /// Goes to and fro in what is being read aloud; false, and nothing done, while nothing
  /// is, and in the established manner.
  bool StepInReading(corvane::ReadOn::Unit unit, corvane::ReadOn::Way way) {
    return pane_.manner.today && read_on_.Step(unit, way);
  }
  /// Lets letters in the text pane be letters or lead through the page; false, and
  /// nothing done, where the key is another one's.
  bool SwitchQuickKeys();
  /// Says the page's title, what there is in it and where the reader is; false, and
  /// nothing done, in the established manner.
  bool SayGlance();
  /// What a key does where the user is in the pane, in a few words as they follow the
  /// key's name; nothing where it is none of the pane's own.
  std::optional<std::string> WhatKeyDoes(const KeyEvent& key) const;
  /// Whether the user is in the page itself.
  bool IsInPage() const { return pane_.state.area == kAreaPage; }
  /// Says something of the window's.
  void Say(const std::string& text) { pane_.announcer.Say(text); }
  /// Spell what is at the caret; false, and nothing done, in the established manner.
  bool SpellWord();
  bool SpellLine();
  /// Lists the page's elements over the window; false, and nothing done, in the
  /// established manner.
  bool ShowElements(Form& owner);
  void HideButtonToolBar(bool hide) {
    areas_.KeepFocus([&] { layout_.HideButtonToolBar(hide); });
  }
  /// Lets more or fewer of the present page's live words be heard.
  void StepThroughLiveWords() { live_words_.StepThroughChoices(); }
  /// Speaks the title of the page that was read last; silent before the first.
  void SayWhereYouAre() { reader_.SayTitle(); }
  void GetHelp(const std::string& file) { help_.GetHelp(file); }
  void MenuToggleCheck(int index, MenuArray& menu) { settings_.MenuToggleCheck(menu, index); }
  void mnuSideBarContent_Click(int index) {
    areas_.KeepFocus([&] { side_bar_.mnuSideBarContent_Click(index); });
  }
  void mnuTextHistory_Click(int index) { settings_.mnuTextHistory_Click(index); }
  void mnuHome_Click(int index) { settings_.mnuHome_Click(index); }
  void mnuFocus_Click(int index) { settings_.mnuFocus_Click(index); }

  /// A page opens a window; see WebBrowser::NewWindow.
  Event<>& NewWindow() { return pane_.controls.brwWebBrowser->NewWindow; }
  /// The window may close now; see WebBrowser::MayClose.
  bool MayClose() { return pane_.controls.brwWebBrowser->MayClose(); }
  /// The window may close: its page agrees, or wants it.
  Event<>& WindowClosing() { return pane_.controls.brwWebBrowser->WindowClosing; }
  /// The page, or saving it, wants files.
  Event<const FileRequest&>& FilesWanted() { return pane_.controls.brwWebBrowser->FilesWanted; }

  /// One value of an Internet shortcut or other profile file, at most 126
  /// characters; empty when it is not there.
  std::string VBGetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const;

  /// The pane's inside, for tests.
  PaneContext& Inside() { return pane_; }

 private:
  void UserControl_Initialize();

  PaneContext pane_;
  PaneSettings settings_;
  PaneLayout layout_;
  Navigation navigation_;
  PageElements elements_;
  LinksList links_;
  LiveWords live_words_;
  SideBar side_bar_;
  FavoriteCommands favorites_;
  HelpOutline help_;
  PageInPane page_in_pane_;
  ActingInText acting_;
  ElementsDialog elements_dialog_;
  QuickKeys quick_keys_;  // has the text pane's keys before the echo
  Spelling spelling_;
  CaretEcho echo_;
  Places places_;
  corvane::ReadOn read_on_;
  PageReader reader_;
  PaneAreas areas_;
  Connections connections_;
};

}  // namespace corvane
