#include "browser/Navigation.h"

#include <utility>

#include "base/text.h"
#include "browser/Addresses.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

constexpr const char* kSearchWord = "Search";
constexpr std::size_t kSearchWordLength = 6;
constexpr const char* kWorking = "Working...";

enum EditAction : int { kEditCut = 0, kEditCopy = 1, kEditPaste = 2, kEditSelectAll = 4 };

/// Whether a character code puts something into a field or takes it out: signs, Backspace
/// with and without Control, what pastes and what cuts.
bool Edits(int character) {
  constexpr int kBackspace = 8;
  constexpr int kPaste = 'V' - 'A' + 1;
  constexpr int kCut = 'X' - 'A' + 1;
  return character >= ' ' || character == kBackspace || character == kPaste || character == kCut;
}

std::string escaped_words(const std::string& words) {
  std::string query;
  for (const char c : words) {
    switch (c) {
      case ' ':
        query += '+';
        break;
      case '"':
        query += "%22";
        break;
      case '+':
        query += "%2B";
        break;
      default:
        query += c;
    }
  }
  return query;
}

}  // namespace

Navigation::Navigation(PaneContext& pane, PaneSettings& settings)
    : pane_(pane), settings_(settings) {
  PaneControls& c = pane_.controls;
  for (int index = 0; index < kToolbarButtons; ++index) {
    CommandButton& button = c.Toolbar(index);
    connections_ += button.Click.Connect([this, index] { cmdToolbar_Click(index); });
    connections_ += button.GotFocus.Connect([this, &button] {
      pane_.announcer.Say(text::replace_all(button.Caption(), "&", "") + " Button");
    });
    connections_ += button.KeyDown.Connect([this](KeyEvent& key) { cmdToolbar_KeyDown(key); });
  }
  connections_ += c.cboAddress->GotFocus.Connect([this] { SayAddressBox(); });
  // Up and Down put another address into the box, which must be heard.
  connections_ +=
      c.cboAddress->Click.Connect([this, &c] { pane_.announcer.Say(c.cboAddress->Text()); });
  connections_ +=
      c.cboAddress->KeyPress.Connect([this](int& KeyAscii) { cboAddress_KeyPress(KeyAscii); });
  connections_ += c.cboAddress->KeyDown.Connect([this](KeyEvent& key) {
    if (key.KeyCode == kKeyDelete) pane_.state.typing = true;
  });
  // The open list is heard as the cursor moves in it.
  connections_ += c.cboAddress->Highlight.Connect(
      [this](const std::string& entry) { pane_.announcer.Say(entry); });
  connections_ += c.brwWebBrowser->DownloadBegin.Connect([this] { brwWebBrowser_DownloadBegin(); });
  connections_ +=
      c.brwWebBrowser->DownloadComplete.Connect([this] { brwWebBrowser_DownloadComplete(); });
  connections_ += c.brwWebBrowser->StatusTextChange.Connect(
      [this](const std::string& text) { brwWebBrowser_StatusTextChange(text); });
  connections_ += c.brwWebBrowser->Announcement.Connect(
      [this](const std::string& text) { pane_.announcer.AddAndSayOwn(text); });
  connections_ +=
      pane_.menu.mnuOptions.Click.Connect([this](int index) { mnuOptions_Click(index); });
}

void Navigation::Navigate(const std::string& url) {
  ErrorsIgnored([&] { pane_.controls.brwWebBrowser->Navigate2(url); });
}

void Navigation::StartPage() {
  PaneControls& c = pane_.controls;
  ErrorsIgnored([&] { ShowAddress(""); });
  if (const auto asked = std::exchange(pane_.state.strFirstAddress, {}); !asked.empty()) {
    ErrorsIgnored([&] { ShowAddress(asked); });
    Navigate(asked);
    ErrorsIgnored([&] { pane_.StartReading(); });
    return;
  }
  switch (pane_.menu.mnuHome.FirstChecked()) {
    case kHomeNone:
      Navigate(kBlankPage);
      break;
    case kHomeExplorer:
      ErrorsIgnored([&] { c.brwWebBrowser->GoHome(); });
      break;
    case kHomeCorvane:
      Navigate(kMakerHomePage);
      break;
    default:
      if (!pane_.HasStartAddress()) {
        Navigate(kMakerHomePage);
        break;
      }
      ErrorsIgnored([&] { ShowAddress(pane_.state.strAddress); },
                    [&] { c.brwWebBrowser->Navigate2(c.cboAddress->Text()); });
  }
  ErrorsIgnored([&] { pane_.StartReading(); });
}

void Navigation::SayAddressBox() {
  pane_.announcer.Say(pane_.controls.cboAddress->Text() + " Address Box");
}

void Navigation::ShowAddress(const std::string& address) {
  strShown_ = address;
  pane_.controls.cboAddress->SetText(address);
}

void Navigation::AddressBoxLeft() {
  pane_.state.typing = false;
  ErrorsIgnored([&] {
    ComboBox& box = *pane_.controls.cboAddress;
    if (box.Text() != strShown_) box.SetText(strShown_);
  });
}

void Navigation::TakeBackAddress() {
  AddressBoxLeft();
  ErrorsIgnored([&] { FocusAddress(); });
}

// Who is there already hears it again: silence would tell nothing.
void Navigation::FocusAddress() {
  bool told = false;
  const Connection following =
      pane_.controls.cboAddress->GotFocus.Connect([&told] { told = true; });
  pane_.controls.cboAddress->SetFocus();
  if (!told) SayAddressBox();
}

void Navigation::cboAddress_DblClick() {
  pane_.state.typing = false;
  std::string typed;
  ErrorsIgnored([&] { typed = strShown_ = pane_.controls.cboAddress->Text(); },
                [&] { pane_.announcer.Say(typed); },
                [&] {
                  if (text::same_ignoring_case(text::left(typed, kSearchWordLength), kSearchWord)) {
                    GoSearch(text::mid(typed, kSearchWordLength + 1));
                  } else {
                    Navigate(typed);
                  }
                },
                [&] { pane_.StartReading(); });
}

void Navigation::GoSearch(const std::string& words) {
  ErrorsShown(pane_.desktop.GetMessageBox(), "GoSearch Error: ", [&] {
    pane_.controls.brwWebBrowser->Navigate2(kSearchEndpoint + escaped_words(words));
  });
}

void Navigation::cmdAction(int action) {
  PaneControls& c = pane_.controls;
  ErrorsIgnored([&] {
    switch (action) {
      case kActionSaveAs:
        c.brwWebBrowser->ExecWB(WebBrowser::OLECMDID_SAVEAS,
                                WebBrowser::OLECMDEXECOPT_DONTPROMPTUSER);
        break;
      case kActionPrint:
        c.brwWebBrowser->ExecWB(WebBrowser::OLECMDID_PRINT, WebBrowser::OLECMDEXECOPT_PROMPTUSER);
        break;
      case kActionEngineOptions:
        pane_.desktop.ShowEngineOptions();
        break;
      case kActionFocusTree:
        if (pane_.Shows(kAreaSideBar)) c.TreeView1->SetFocus();
        break;
      case kActionFocusText:
        c.ctlText1.SetFocus();
        break;
      case kActionFocusAddress:
        FocusAddress();
        break;
      case kActionFocusToolbar:
        if (pane_.Shows(kAreaToolbar)) c.Toolbar(kBack).SetFocus();
        break;
      case kActionOpenWebSite:
        c.cboAddress->SetText("");
        FocusAddress();
        break;
      case kActionStatusFeedback:
        mnuOptions_Click(kOptionStatusFeedback);
        break;
      default:
        break;
    }
  });
}

void Navigation::Edit(int action) {
  ctlText& text = pane_.controls.ctlText1;
  Clipboard& clipboard = pane_.desktop.GetClipboard();
  const auto copy = [&] {
    const std::string selected = text.SelText();
    ErrorsIgnored([&] { clipboard.Clear(); }, [&] { clipboard.SetText(selected); });
  };
  switch (action) {
    case kEditCut:
      copy();
      text.SetSelText("");
      break;
    case kEditCopy:
      copy();
      break;
    case kEditPaste:
      ErrorsIgnored([&] { text.SetSelText(clipboard.GetText()); });
      break;
    case kEditSelectAll:
      text.SetFocus();
      text.SetSelStart(0);
      text.SetSelLength(text.TextLength());
      break;
    default:
      break;
  }
}

void Navigation::cmdToolbar_Click(int index) {
  PaneControls& c = pane_.controls;
  WebBrowser& browser = *c.brwWebBrowser;
  switch (index) {
    case kBack:
      pane_.state.by_history = true;
      ErrorsIgnored([&] { browser.GoBack(); });
      break;
    case kForward:
      pane_.state.by_history = true;
      ErrorsIgnored([&] { browser.GoForward(); });
      break;
    case kStop:
      ErrorsIgnored([&] { browser.Stop(); }, [&] { pane_.status.Show(browser.LocationName()); });
      break;
    case kRefresh:
      ErrorsIgnored([&] { browser.Refresh(); });
      break;
    case kHome:
      StartPage();
      break;
    case kSearch: {
      const std::string word = std::string(kSearchWord) + " ";
      ErrorsIgnored([&] { c.cboAddress->SetText(word); }, [&] { FocusAddress(); },
                    [&] { c.cboAddress->SetSelStart(static_cast<int>(text::length(word))); });
      break;
    }
    case kPrint:
      cmdAction(kActionPrint);
      break;
    default:
      break;
  }
}

void Navigation::cmdToolbar_KeyDown(KeyEvent& key) {
  if (key.KeyCode != kKeyTab) return;
  ErrorsIgnored([&] {
    if ((key.Shift & kShiftMask) != 0) {
      pane_.controls.ctlText1.SetFocus();
    } else {
      pane_.controls.cboAddress->SetFocus();
    }
  });
  key.KeyCode = 0;
}

// With the side bar hidden there is no tree to go to; Tab then takes its usual
// way, or the user would be held in the address box.
void Navigation::cboAddress_KeyPress(int& KeyAscii) {
  if (KeyAscii == kKeyReturn) {
    cboAddress_DblClick();
  } else if (KeyAscii == kKeyTab && pane_.Shows(kAreaSideBar)) {
    ErrorsIgnored([&] { pane_.controls.TreeView1->SetFocus(); });
    KeyAscii = 0;
  } else if (KeyAscii == kKeyEscape) {
    TakeBackAddress();
  } else if (Edits(KeyAscii)) {
    pane_.state.typing = true;
  }
}

void Navigation::brwWebBrowser_DownloadBegin() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "DownloadBegin Error: ", [&] {
    pane_.StartReading();
    pane_.announcer.AddAndSign(kWorking, Sign::Working);
  });
}

void Navigation::brwWebBrowser_DownloadComplete() {
  ComboBox& box = *pane_.controls.cboAddress;
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  ErrorsIgnored([&] {
    const std::string address = browser.LocationURL();
    if (address.empty() || text::same_ignoring_case(text::left(address, 5), "about")) return;
    ErrorsIgnored([&] { pane_.status.Show(browser.LocationName()); });
    bool known = false;
    for (int i = 0; i < box.ListCount() && !known; ++i) {
      pane_.desktop.DoEvents();
      known = i < box.ListCount() && box.List(i) == address;
    }
    if (!known) box.AddItem(address);
    strShown_ = address;
    if (!pane_.state.typing) box.SetText(address);
  });
}

void Navigation::brwWebBrowser_StatusTextChange(const std::string& text) {
  ErrorsIgnored([&] { pane_.status.Show(text); },
                [&] {
                  if (pane_.state.blnStatusFeedback) pane_.announcer.Say(text);
                });
}

void Navigation::SetStatusFeedback(bool on) {
  ErrorsIgnored([&] { pane_.menu.mnuOptions(kOptionStatusFeedback).SetChecked(on); },
                [&] { pane_.state.blnStatusFeedback = on; });
}

void Navigation::mnuOptions_Click(int index) {
  if (index != kOptionStatusFeedback) return;
  MenuArray& options = pane_.menu.mnuOptions;
  ErrorsIgnored([&] { settings_.MenuToggleCheck(options, kOptionStatusFeedback); },
                [&] { pane_.state.blnStatusFeedback = options(kOptionStatusFeedback).Checked(); });
}

}  // namespace corvane
