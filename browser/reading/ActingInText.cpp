#include "browser/reading/ActingInText.h"

#include <string>
#include <utility>

#include "base/handling.h"
#include "base/text.h"
#include "browser/reading/TextKinds.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;

constexpr const char* kGone = "That is no longer in the page";
constexpr std::size_t kMostWords = 300;  // characters of what a use has brought
constexpr int kMostNews = 3;             // of it, from a page that changes without end

/// What Enter and Space do with an element; nothing for what only holds others.
std::optional<WebBrowser::ElementUse> UseOf(const PageSpan& span) {
  switch (span.kind) {
    case Kind::Link:
    case Kind::Button:
    case Kind::CheckBox:
    case Kind::Radio:
      return WebBrowser::ElementUse::Use;
    case Kind::Edit:
    case Kind::Choice:
    case Kind::Frame:
      return WebBrowser::ElementUse::Enter;
    case Kind::Widget:
      return span.facts && span.facts->role == "slider" ? WebBrowser::ElementUse::Enter
                                                        : WebBrowser::ElementUse::Use;
    default:
      return std::nullopt;
  }
}

/// Whether who has the focus in the element goes on with writing.
bool IsWrittenIn(const HTMLElement& element) {
  if (element.type_name == "HTMLTextAreaElement") return true;
  if (element.type_name != "HTMLInputElement") return false;
  return text::same_ignoring_case(element.type, "text") ||
         text::same_ignoring_case(element.type, "password");
}

}  // namespace

ActingInText::ActingInText(PaneContext& pane, PageInPane& page) : pane_(pane), page_(page) {
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  connections_ += browser.LeftElement.Connect([this](const PageElement& each) { Left(each); });
  connections_ += browser.ElementGone.Connect([this] { Gone(); });
  connections_ += browser.FocusMoved.Connect([this](const PageElement& to) { FocusMoved(to); });
  connections_ += page_.Refreshed.Connect([this](int first_new) { Refreshed(first_new); });
  connections_ += pane_.PageShown.Connect([this] {
    left_.reset();
    Forget();
  });
  // Who reads on is not led elsewhere any more; who only wants silence is.
  connections_ += pane_.controls.ctlText1.KeyDown.Connect([this](KeyEvent& key) {
    if (!IsModifier(key.KeyCode)) Forget();
  });
}

// The keys have not come to the page, or not where they were to go.
void ActingInText::Forget() {
  used_.reset();
  to_.reset();
  pane_.state.entering = false;
}

bool ActingInText::Use() {
  const TextMap* map = page_.Map();
  if (map == nullptr) return false;
  // A cell without text stands at what follows it, and holds nothing.
  if (page_.Here() && map->At(*page_.Here()).length == 0) return false;
  const auto at =
      map->Around(page_.Caret(), [](const PageSpan& span) { return UseOf(span).has_value(); });
  if (!at) return false;
  const PageSpan& span = map->At(*at);
  if (span.facts && span.facts->disabled) {
    pane_.announcer.Say("unavailable");
    return true;
  }
  page_.StandAt(*at);
  const auto use = *UseOf(span);
  const PageElement element = map->Page().ElementOf(span);
  pane_.state.entering = use == WebBrowser::ElementUse::Enter;
  if (use == WebBrowser::ElementUse::Use) used_ = {element, pane_.announcer.Count()};
  pane_.controls.brwWebBrowser->UseElement(element, use);
  return true;
}

// The focus comes to the text pane when the window is the active one again; what is said
// there then are the words of what was chosen.
void ActingInText::Lead(const PageElement& element, Then then) {
  const TextMap* map = page_.Map();
  const auto span = map != nullptr ? map->Of(element) : std::nullopt;
  if (!span) return pane_.announcer.Say(kGone);
  page_.GoTo(*span);
  std::string words = ReachedWords(*map, map->At(*span));
  if (then == Then::Act) words = Use() ? "" : kNothingToUse;
  pane_.state.arriving = words;
  pane_.controls.ctlText1.SetFocus();
}

// --- what the page makes of it ------------------------------------------------------------

// It has been told by the element's event. A field is there to be written in, but nobody
// is taken there by what a page does long after.
void ActingInText::FocusMoved(const PageElement& element) {
  if (!used_ || pane_.state.area != kAreaText) return;
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  const HTMLElementPtr to = browser.FocusedElement();
  const HTMLDocumentPtr page = browser.Document();
  if (to && IsWrittenIn(*to) && !(page && page->unasked)) {
    used_.reset();
    pane_.state.entering = true;
    return browser.UseElement(element, WebBrowser::ElementUse::Follow);
  }
  to_ = element;
  page_.Refresh();
}

// The page has changed since its text was taken.
void ActingInText::Gone() {
  pane_.state.entering = false;
  pane_.announcer.Say(kGone);
  if (page_.Map() != nullptr) page_.Refresh();
}

// What has been done in the page stands in the text before its reader comes back to it.
void ActingInText::Left(const PageElement& element) {
  if (!pane_.manner.quick_keys || page_.Map() == nullptr) return;
  left_ = element;
  page_.Refresh();
  pane_.state.quiet = true;
  ErrorsIgnored([&] { pane_.controls.ctlText1.SetFocus(); });
  pane_.state.quiet = false;
}

void ActingInText::Refreshed(int first_new) {
  const TextMap* map = page_.Map();
  if (const auto left = std::exchange(left_, std::nullopt)) return GoToLeft(*left);
  if (map == nullptr) return;
  if (const auto to = std::exchange(to_, std::nullopt)) {
    if (const auto span = map->Of(*to)) page_.GoTo(*span);
    return;
  }
  if (!used_ || pane_.state.area != kAreaText) return;
  // Where nothing else has told what the use has done, its words do, or those that stand
  // in its place.
  const bool gone = !map->Of(used_->element);
  const bool silent = pane_.announcer.Count() == used_->said && used_->news < kMostNews;
  if (silent && (gone || first_new >= 0)) {
    if (first_new < 0) page_.GoTo(page_.WordsFrom(page_.Caret()));
    SayLineAt(first_new >= 0 ? first_new : page_.Caret());
    used_->said = pane_.announcer.Count();
    ++used_->news;
  }
  if (gone) used_.reset();
}

void ActingInText::GoToLeft(const PageElement& element) {
  const TextMap* map = page_.Map();
  const auto span = map != nullptr ? map->Of(element) : std::nullopt;
  if (!span) return pane_.announcer.Say("Text Box");
  page_.GoTo(*span);
  pane_.announcer.Say(ReachedWords(*map, map->At(*span)));
}

void ActingInText::SayLineAt(int position) {
  const RichTextBox& box = pane_.controls.ctlText1.Text1();
  const int at = pane_.state.page_text + position;
  pane_.announcer.Say(page_.LineWordsFrom(box.LineIndex(box.GetLineFromChar(at)), kMostWords));
}

}  // namespace corvane
