#include "browser/LiveWords.h"

#include <algorithm>
#include <array>
#include <utility>

#include "access/ElementWords.h"
#include "base/count.h"
#include "base/language.h"
#include "platform/element_facts.h"

namespace corvane {
namespace {

constexpr std::size_t kMostWaiting = 3;
constexpr int kRecent = 1000;  // milliseconds
constexpr std::size_t kMostRecent = 20;
constexpr int kLookAgain = 200;  // milliseconds, whether the page has been read
constexpr std::array kChoiceWords = {"Live words: all", "Live words: important",
                                     "Live words: none"};

std::string MoreWordsOf(int count) { return Counted(count, "more message", "more messages"); }

std::string SentenceOf(const PageWords& words) {
  if (words.more > 0) return MoreWordsOf(words.more);
  if (words.dialog.empty()) return words.words;
  ElementGroup dialog;
  dialog.role = words.dialog;
  dialog.name = words.name;
  dialog.description = words.words;
  return GroupWords(dialog);
}

}  // namespace

LiveWords::LiveWords(PaneContext& pane)
    : pane_(pane),
      timRead_(pane.desktop.CreateTimer()),
      heard_(pane.manner.live_words),
      chosen_(pane.manner.live_words) {
  timRead_->SetInterval(kLookAgain);
  connections_ += timRead_->Tick.Connect([this] {
    if (PageIsBeingRead()) return;
    timRead_->SetEnabled(false);
    if (!saying_) Next();
  });
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  connections_ += browser.PageSays.Connect([this](const PageWords& words) { Receive(words); });
  connections_ += browser.DownloadBegin.Connect([this] { Forget(); });
}

void LiveWords::StepThroughChoices() {
  const auto next = (static_cast<std::size_t>(heard_) + 1) % kChoiceWords.size();
  heard_ = static_cast<LiveWordsHeard>(next);
  chosen_ = pane_.manner.live_words;
  waiting_.clear();
  left_out_ = 0;
  pane_.announcer.AddAndSay(kChoiceWords[next]);
}

void LiveWords::Forget() {
  waiting_.clear();
  recent_.clear();
  left_out_ = 0;
  heard_ = chosen_ = pane_.manner.live_words;
}

// What is chosen for all pages since counts for this one, too.
LiveWordsHeard LiveWords::Heard() const {
  return pane_.manner.live_words == chosen_ ? heard_ : pane_.manner.live_words;
}

bool LiveWords::IsWanted(const PageWords& words) const {
  const LiveWordsHeard heard = Heard();
  return heard == LiveWordsHeard::All || (heard == LiveWordsHeard::Important && words.urgent);
}

void LiveWords::ForgetOld() {
  std::erase_if(recent_, [](const Said& said) { return !said.timer->Enabled(); });
}

bool LiveWords::WasJustSaid(const std::string& sentence) {
  ForgetOld();
  const auto is_same = [&](const Said& said) { return said.sentence == sentence; };
  if (std::any_of(recent_.begin(), recent_.end(), is_same)) return true;
  if (recent_.size() >= kMostRecent) recent_.erase(recent_.begin());
  Said& said = recent_.emplace_back();
  said.sentence = sentence;
  said.timer = pane_.desktop.CreateTimer();
  said.timer->SetInterval(kRecent);
  said.over = said.timer->Tick.Connect([timer = said.timer.get()] { timer->SetEnabled(false); });
  said.timer->SetEnabled(true);
  return false;
}

PageWords LiveWords::InItsLanguage(PageWords words) const {
  const HTMLDocumentPtr document = pane_.controls.brwWebBrowser->Document();
  if (words.language.empty() && document) words.language = document->language;
  words.words = language::Marked(words.words, words.language);
  words.name = language::Marked(words.name, words.language);
  return words;
}

void LiveWords::Receive(const PageWords& words) {
  if (words.opened != PageWords::Opened::Nothing) return Opened(words);
  if (!IsWanted(words)) return;
  const std::string sentence = SentenceOf(InItsLanguage(words));
  if (sentence.empty() || WasJustSaid(sentence)) return;
  // What is said of the page as it comes would cut it off.
  if (words.urgent && !PageIsBeingRead()) {
    pane_.announcer.Say(sentence);
  } else {
    Wait(sentence);
  }
}

// It does not cut off what the page says with it.
void LiveWords::Opened(const PageWords& words) {
  const bool in_region = words.opened == PageWords::Opened::PartOfRegion;
  if (in_region && Heard() != LiveWordsHeard::None) return;
  ForgetOld();
  if (saying_ || !recent_.empty()) return Wait(words.words);
  pane_.announcer.AddAndSay(words.words);
}

bool LiveWords::PageIsBeingRead() const {
  const PaneControls& c = pane_.controls;
  return c.timTimer->Enabled() || c.brwWebBrowser->Busy();
}

void LiveWords::Wait(const std::string& sentence) {
  waiting_.push_back(sentence);
  if (waiting_.size() > kMostWaiting) {
    waiting_.pop_front();
    ++left_out_;
  }
  if (saying_) return;
  if (PageIsBeingRead()) return timRead_->SetEnabled(true);
  Next();
}

// One after the other, each behind what is then being said; a key that is heard in
// between costs no more than the one that it cuts off.
void LiveWords::Next() {
  if (waiting_.empty()) {
    if (left_out_ == 0) return saying_.reset();
    waiting_.push_back(MoreWordsOf(std::exchange(left_out_, 0)));
  }
  const std::string sentence = waiting_.front();
  waiting_.pop_front();
  saying_ = std::make_shared<int>();
  pane_.announcer.SayBehind(sentence, [this, mine = std::weak_ptr(saying_)](bool) {
    if (!mine.expired()) Next();
  });
}

}  // namespace corvane
