#include "browser/LiveWords.h"

#include <algorithm>
#include <array>
#include <utility>

#include "access/ElementWords.h"
#include "platform/element_facts.h"

namespace corvane {
namespace {

constexpr std::size_t kMostWaiting = 3;
constexpr int kRecent = 1000;  // milliseconds
constexpr std::array kChoiceWords = {"Live words: all", "Live words: important",
                                     "Live words: none"};

std::string MoreWordsOf(int count) {
  return std::to_string(count) + (count == 1 ? " more message" : " more messages");
}

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
      timRecent_(pane.desktop.CreateTimer()),
      heard_(pane.manner.live_words),
      chosen_(pane.manner.live_words) {
  timRecent_->SetInterval(kRecent);
  connections_ += timRecent_->Tick.Connect([this] {
    timRecent_->SetEnabled(false);
    recent_.clear();
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

bool LiveWords::IsWanted(const PageWords& words) const {
  // What is chosen for all pages since counts for this one, too.
  const LiveWordsHeard heard =
      pane_.manner.live_words == chosen_ ? heard_ : pane_.manner.live_words;
  return heard == LiveWordsHeard::All || (heard == LiveWordsHeard::Important && words.urgent);
}

bool LiveWords::WasJustSaid(const std::string& sentence) {
  if (std::find(recent_.begin(), recent_.end(), sentence) != recent_.end()) return true;
  recent_.push_back(sentence);
  timRecent_->SetEnabled(true);
  return false;
}

void LiveWords::Receive(const PageWords& words) {
  if (!IsWanted(words)) return;
  const std::string sentence = SentenceOf(words);
  if (sentence.empty() || WasJustSaid(sentence)) return;
  if (words.urgent) {
    pane_.announcer.Say(sentence);
  } else {
    Wait(sentence);
  }
}

void LiveWords::Wait(const std::string& sentence) {
  waiting_.push_back(sentence);
  if (waiting_.size() > kMostWaiting) {
    waiting_.pop_front();
    ++left_out_;
  }
  if (!saying_) Next();
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
