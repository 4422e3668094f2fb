#include "browser/reading/PageInPane.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/handling.h"
#include "base/language.h"
#include "base/text.h"
#include "browser/reading/Glance.h"
#include "browser/reading/TextKinds.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;

constexpr std::size_t kMostPlaces = 200;    // kept of the history
constexpr std::size_t kMostAtTarget = 300;  // characters said of where an address leads
constexpr std::string_view kBlanks = " \t\n";

/// Where two texts part, in bytes: what both begin with, what both end with.
std::pair<std::size_t, std::size_t> Common(std::string_view a, std::string_view b) {
  const std::size_t least = std::min(a.size(), b.size());
  std::size_t first = 0;
  while (first < least && a[first] == b[first]) ++first;
  while (first > 0 && first < a.size() && text::continues(a[first])) --first;
  while (first > 0 && first < b.size() && text::continues(b[first])) --first;
  std::size_t last = 0;
  while (last < least - first && a[a.size() - 1 - last] == b[b.size() - 1 - last]) ++last;
  while (last > 0 && text::continues(a[a.size() - last])) --last;
  return {first, last};
}

int Characters(std::string_view text) { return static_cast<int>(text::length(text)); }

}  // namespace

PageInPane::PageInPane(PaneContext& pane) : pane_(pane) {
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  connections_ += pane_.PageShown.Connect([this] { Shown(); });
  connections_ += browser.DownloadBegin.Connect([this] { KeepPlace(); });
  connections_ += browser.Found.Connect([this] {
    finding_ = map_ || coming_;
    if (finding_) Refresh();
  });
  connections_ += browser.TextChanged.Connect([this] { Changed(); });
  // Who comes from the page has done something there.
  connections_ += browser.GotFocus.Connect([this] { stale_ = true; });
  connections_ += pane_.controls.ctlText1.Text1().GotFocus.Connect([this] {
    if (std::exchange(stale_, false) && map_) Refresh();
  });
}

bool PageInPane::IsWanted() const {
  return pane_.manner.today || pane_.manner.text_kinds || pane_.manner.quick_keys;
}

// --- the text ------------------------------------------------------------------------

void PageInPane::Shown() {
  map_.reset();
  here_.reset();
  finding_ = stale_ = false;
  asking_ = {};
  length_ = pane_.controls.ctlText1.TextLength() - pane_.state.page_text;
  coming_ = IsWanted() && length_ >= 0;
  if (coming_) Refresh();
}

bool PageInPane::IsKnown() const {
  if (map_) return true;
  pane_.announcer.Say(coming_ ? "The page is still being read"
                              : "What stands where in this page is not known");
  return false;
}

void PageInPane::Refresh() {
  stale_ = false;
  asking_ = pane_.controls.brwWebBrowser->DescribeText(
      [this](const PageTextPtr& text) { ErrorsIgnored([&] { Take(text); }); });
}

void PageInPane::Take(const PageTextPtr& text) {
  const bool was_coming = std::exchange(coming_, false);
  const int first = Put(text);
  if (was_coming) Arrived.Raise();
  Refreshed.Raise(first);
}

// Who is elsewhere needs it when he comes back.
void PageInPane::Changed() {
  if (!map_) return;
  if (pane_.state.area == kAreaText) return Refresh();
  stale_ = true;
}

int PageInPane::Put(const PageTextPtr& text) {
  const int first = Place(text);
  // What has been found, and said, is where the reader goes on.
  const bool found = std::exchange(finding_, false) && text && text->selected >= 0;
  if (found) SetCaret(text->selected);
  return first;
}

int PageInPane::Place(const PageTextPtr& text) {
  if (!text) return -1;
  const bool is_first = map_ == nullptr;
  const auto mark = CaretMark();
  const int first = Replace(*text);
  map_ = std::make_unique<TextMap>(text);
  here_.reset();
  if (!is_first) {
    // Outside all elements the caret has stayed with the words around it.
    if (mark && !mark->element.document.empty()) SetCaret(PositionOf(*mark));
    return first;
  }
  const std::string address = pane_.controls.brwWebBrowser->LocationURL();
  const std::string document = text->documents.empty() ? "" : text->documents.front();
  const bool again = std::exchange(document_, document) == document;
  const bool same = std::exchange(address_, address) == address;
  const auto place = again && same ? std::exchange(again_, std::nullopt) : std::nullopt;
  const bool by_history = std::exchange(pane_.state.by_history, false);
  const auto known = by_history ? places_.find(address) : places_.end();
  if (place) {
    Restore(*place);
  } else if (known != places_.end()) {
    Restore(known->second);
  } else if (pane_.manner.today && text->target >= 0 && Caret() < 0) {
    BeginAt(text->target);
  }
  return -1;
}

// Only what differs is written: the text view lays out less, and the caret's place in the
// rest stays.
int PageInPane::Replace(const PageText& text) {
  ctlText& box = pane_.controls.ctlText1;
  const std::string all = box.Text();
  const auto base = static_cast<std::size_t>(pane_.state.page_text);
  const std::size_t from = text::offset_of(all, base);
  const std::size_t until = text::offset_of(all, static_cast<std::size_t>(length_), from);
  const std::string_view old = std::string_view(all).substr(from, until - from);
  const std::string_view now = text.text;
  length_ = text.length;
  if (old == now) return -1;
  const auto [first, last] = Common(old, now);
  const int start = pane_.state.page_text + Characters(old.substr(0, first));
  const int removed = Characters(old.substr(first, old.size() - first - last));
  const std::string_view added = now.substr(first, now.size() - first - last);
  const int caret = box.SelStart();
  box.SetSelStart(start);
  box.SetSelLength(removed);
  box.SetSelText(std::string(added));
  int place = caret;
  if (caret >= start + removed) {
    place += Characters(added) - removed;
  } else if (caret > start) {
    place = std::min(caret, start + Characters(added));
  }
  box.SetSelStart(place);
  Moved.Raise();
  const std::size_t words = added.find_first_not_of(kBlanks);
  if (words == std::string_view::npos) return -1;
  return start - pane_.state.page_text + Characters(added.substr(0, words));
}

std::string PageInPane::AtAGlance() const {
  const HTMLDocumentPtr document = pane_.controls.brwWebBrowser->Document();
  if (!document) return {};
  std::string words = document->Title.empty() ? document->location : document->Title;
  if (!map_) return words;
  const std::string content = ContentWords(*map_, document->forms.size());
  if (!content.empty()) words += ", " + content;
  return words + ", " + WhereWords(*map_, Caret());
}

std::string PageInPane::LineWords(int start, const std::string& line) const {
  const int place = start - pane_.state.page_text;
  if (!map_ || place < 0 || place > length_) return InItsLanguages(start, line);
  return LineWithKinds(*map_, place, line);
}

std::string PageInPane::LineWordsFrom(int position, std::size_t most) const {
  const RichTextBox& box = pane_.controls.ctlText1.Text1();
  const int line = box.GetLineFromChar(position);
  const auto column = static_cast<std::size_t>(position - box.LineIndex(line));
  const std::string words = box.GetLine(line, box.LineLength(position));
  return LineWords(position, text::left(text::mid(words, column + 1), most));
}

std::string PageInPane::InLanguageHere(const std::string& words) const {
  return map_ ? language::Marked(words, map_->LanguageAt(Caret())) : words;
}

std::string PageInPane::InItsLanguages(int position, const std::string& words) const {
  const int place = position - pane_.state.page_text;
  if (!map_) return words;
  const HTMLDocumentPtr document = pane_.controls.brwWebBrowser->Document();
  const bool is_title = place == -static_cast<int>(text::length(words)) - 1;
  if (is_title && document && document->Title == words) {
    return language::Marked(words, document->language);
  }
  if (place < 0) return words;
  const std::string marked = map_->Marked(place, static_cast<int>(text::length(words)));
  return language::Unmarked(marked) == words ? marked : words;
}

// --- the reader's place ----------------------------------------------------------------

int PageInPane::Caret() const { return pane_.controls.ctlText1.SelStart() - pane_.state.page_text; }

std::optional<std::size_t> PageInPane::Here() const {
  if (!here_ || !map_ || map_->At(*here_).start != Caret()) return std::nullopt;
  return here_;
}

void PageInPane::StandAt(std::size_t span) {
  if (map_->At(span).start == Caret()) here_ = span;
}

void PageInPane::SetCaret(int position) {
  pane_.controls.ctlText1.SetSelStart(pane_.state.page_text + position);
  Moved.Raise();
}

void PageInPane::GoTo(int position) {
  here_.reset();
  SetCaret(position);
  const auto around = map_->Around(position, [](const PageSpan&) { return true; });
  if (!around) return;
  const PageElement element = map_->Page().ElementOf(map_->At(*around));
  pane_.controls.brwWebBrowser->UseElement(element, WebBrowser::ElementUse::Show);
}

void PageInPane::GoTo(std::size_t span) {
  const PageSpan& to = map_->At(span);
  SetCaret(to.start);
  here_ = span;
  pane_.controls.brwWebBrowser->UseElement(map_->Page().ElementOf(to),
                                           WebBrowser::ElementUse::Show);
}

void PageInPane::ReadAt(int position, const std::string& words) {
  ctlText& box = pane_.controls.ctlText1;
  if (box.SelStart() != position || box.SelLength() > 0) box.SetSelStart(position);
  const int place = position - pane_.state.page_text;
  if (!map_ || place < 0 || words.empty()) return;
  const auto near = map_->LastBefore(place);
  const PageElement element = near ? map_->Page().ElementOf(map_->At(*near)) : PageElement{};
  pane_.controls.brwWebBrowser->ShowWords(element, words);
}

int PageInPane::WordsFrom(int position) const {
  const std::string& text = map_->Page().text;
  const std::size_t at = text::offset_of(text, static_cast<std::size_t>(std::max(position, 0)));
  const std::size_t words = text.find_first_not_of(kBlanks, at);
  if (words == std::string::npos) return position;
  return position + Characters(std::string_view(text).substr(at, words - at));
}

int PageInPane::End() const {
  return map_ ? pane_.state.page_text + length_ : pane_.controls.ctlText1.TextLength();
}

std::optional<PageInPane::Mark> PageInPane::CaretMark() const {
  const int caret = Caret();
  if (!map_ || caret < 0 || caret > length_) return std::nullopt;
  Mark mark;
  mark.position = caret;
  auto around = Here();
  if (!around) around = map_->Around(caret, [](const PageSpan&) { return true; });
  if (!around) return mark;
  const PageSpan& span = map_->At(*around);
  mark.element = map_->Page().ElementOf(span);
  mark.kind = span.kind;
  mark.words = map_->Words(span);
  mark.offset = caret - span.start;
  return mark;
}

// The page may have been loaded anew: then what reads like the element and stands
// nearest is it.
int PageInPane::PositionOf(const Mark& mark) const {
  const auto& spans = map_->Page().spans;
  const auto in = [&](const PageSpan& span) {
    return span.start + std::clamp(mark.offset, 0, std::max(span.length - 1, 0));
  };
  if (!mark.element.document.empty()) {
    if (const auto same = map_->Of(mark.element)) return in(map_->At(*same));
    const PageSpan* best = nullptr;
    for (const PageSpan& span : spans) {
      if (span.kind != mark.kind || map_->Words(span) != mark.words) continue;
      const auto far = [&](const PageSpan& each) { return std::abs(each.start - mark.position); };
      if (best == nullptr || far(span) < far(*best)) best = &span;
    }
    if (best != nullptr) return in(*best);
  }
  return std::min(mark.position, length_);
}

// The page that is there is left, or is about to be read again.
void PageInPane::KeepPlace() {
  again_ = CaretMark();
  if (!again_ || address_.empty()) return;
  if (places_.size() >= kMostPlaces) places_.erase(places_.begin());
  places_[address_] = *again_;
}

// The address leads into the page, and no key has moved the caret yet.
void PageInPane::BeginAt(int position) {
  SetCaret(position);
  if (pane_.state.area != kAreaText) return;
  pane_.announcer.SayAfterTitle(LineWordsFrom(pane_.state.page_text + position, kMostAtTarget));
}

// Whoever is in the text hears where that is.
void PageInPane::Restore(const Mark& mark) {
  SetCaret(PositionOf(mark));
  const int caret = Caret();
  const auto around = map_->Of(mark.element);
  if (around && map_->At(*around).start == caret) here_ = around;
  if (pane_.state.area != kAreaText || !Here()) return;
  pane_.announcer.SayAfterTitle(ReachedWords(*map_, map_->At(*here_)));
}

}  // namespace corvane
