#include "browser/PageReader.h"

#include <utility>

#include "base/language.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/button_image.h"

namespace corvane {
namespace {

constexpr const char* kWorking = "Working...";
constexpr const char* kDone = "Done";
constexpr const char* kExtractingData = "Extracting Data ...";
constexpr std::int16_t kTicksBetweenWorking = 7;

/// What a page is called aloud; one without a title is not silent.
std::string NameOf(const HTMLDocument& document) {
  if (!document.Title.empty()) return document.Title;
  return document.nameProp.empty() ? document.location : document.nameProp;
}

}  // namespace

PageReader::PageReader(PaneContext& pane, Navigation& navigation, PageElements& elements,
                       LinksList& links, SideBar& side_bar)
    : pane_(pane),
      navigation_(navigation),
      elements_(elements),
      links_(links),
      side_bar_(side_bar),
      auto_focus_(pane, side_bar),
      stopIcon_(kImageStop) {
  Timer& tick = *pane_.controls.timTimer;
  connections_ += tick.Tick.Connect([this] { timTimer_Timer(); });
  // A page that is complete is read at once, yet not from within the engine's event.
  connections_ +=
      pane_.controls.brwWebBrowser->DownloadComplete.Connect([&tick] { tick.TickSoon(); });
}

void PageReader::timTimer_Timer() {
  if (!firstTick_) {
    firstTick_ = true;
    if (!pane_.controls.brwWebBrowser->OpenedByPage()) {
      ErrorsIgnored([&] { navigation_.StartPage(); });
    }
  }
  if (pane_.controls.brwWebBrowser->Busy()) {
    StillLoading();
  } else {
    ReadPage();
  }
}

void PageReader::StillLoading() {
  CommandButton& stop = pane_.controls.Toolbar(kStop);
  stopIcon_ = stopIcon_ != kImageLoading ? kImageLoading : kImageStop;
  ErrorsIgnored([&] { stop.SetPicture(stopIcon_); });
  if (busyTicks_ >= kTicksBetweenWorking) {
    busyTicks_ = 0;
    pane_.announcer.AddAndSign(kWorking, Sign::Working);
    ErrorsIgnored([&] { pane_.status.Show(kWorking); });
  } else {
    busyTicks_ = number::checked_add(busyTicks_, 1);
  }
}

// Several steps let waiting events run, and one of those may complete another
// page and read it from its beginning. Then the rest of this reading is about a
// page that is gone, and ends. A window that closes meanwhile keeps its parts
// until this has returned.
void PageReader::ReadPage() {
  reading_ = std::make_shared<Reading>();
  const Current current = [mine = std::weak_ptr(reading_)] { return !mine.expired(); };
  PaneControls& c = pane_.controls;
  WebBrowser& browser = *c.brwWebBrowser;
  Announcer& announcer = pane_.announcer;
  const PaneMenu& menu = pane_.menu;

  c.timTimer->SetEnabled(false);
  stopIcon_ = kImageStop;
  ErrorsIgnored([&] { c.Toolbar(kStop).SetPicture(stopIcon_); },
                [&] { KeepAddress(browser.LocationURL()); },
                [&] { c.ctlText1.AddText(kLineBreak, true); },
                [&] { announcer.AddAndSign(kDone, Sign::Done); },
                [&] { pane_.status.Show(browser.LocationName()); });
  // What the user is being asked about a download must not be cut off by a page that
  // has been read before.
  if (!current()) return;
  if (browser.StayedOnPage()) return announcer.ExpectNoTitle();
  const HTMLDocumentPtr document = browser.Document();

  if (menu.mnuSideBarContent(kSideBarPageStructure).Checked()) {
    announcer.AddAndSay(kExtractingData);
    ErrorsIgnored([&] { side_bar_.RefreshTreeStructure(); });
  } else if (menu.mnuSideBarContent(kSideBarAccessibility).Checked()) {
    announcer.AddAndSay(kExtractingData);
    ErrorsIgnored([&] { side_bar_.RefreshAABrowser(); });
  }
  if (!current()) return;
  announcer.AddAndSay("Extracting Forms ...");
  if (!current()) return;
  // A message box about the forms is read and closed before anything else is said.
  const auto go_on = [this, document, current] {
    if (current()) ReadOn(document, current);
  };
  if (!document) return go_on();
  announcer.ExpectTitle();
  elements_.Reset(document, go_on);
}

void PageReader::ReadOn(const HTMLDocumentPtr& document, const Current& current) {
  Announcer& announcer = pane_.announcer;
  announcer.AddAndSay("Extracting Links ...");
  if (!current()) return;
  ErrorsIgnored([&] { links_.Fill(Required(document), current); });
  if (!current()) return;
  announcer.AddAndSign(kDone, Sign::Done);
  if (!current()) return;
  // A key that follows the title at once finds the focus where it will be.
  bool led = false;
  const auto lead = [&] {
    if (!std::exchange(led, true)) auto_focus_.AfterReading(document);
  };
  ErrorsIgnored([&] { ReadTitleAndText(Required(document), lead); });
  if (!current()) return;
  announcer.ExpectNoTitle();
  lead();
  ErrorsIgnored([&] { pane_.controls.brwWebBrowser->TellFocus(); });
}

void PageReader::KeepAddress(const std::string& address) {
  if (address != kProblemAddress) pane_.state.strAddress = address;
  pane_.status.Show(address);
}

void PageReader::ReadTitleAndText(const HTMLDocument& document, const std::function<void()>& said) {
  ctlText& text = pane_.controls.ctlText1;
  if (pane_.menu.mnuTextHistory(kClearWithNewPage).Checked()) text.ClearText();
  text.AddText(document.Title + kLineBreak + document.body_innerText, false, [&] {
    pane_.state.page_text = text.SelStart() + static_cast<int>(text::length(document.Title)) + 1;
    title_ = language::Marked(NameOf(document), document.language);
    SayTitle();
    said();
    pane_.PageShown.Raise();
  });
}

void PageReader::Stop() {
  reading_.reset();
  pane_.controls.timTimer->SetEnabled(false);
}

void PageReader::SayTitle() {
  if (!title_.empty()) pane_.announcer.SayTitle(title_);
}

}  // namespace corvane
