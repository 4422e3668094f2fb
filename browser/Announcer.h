#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/handling.h"
#include "base/language.h"
#include "controls/ctlText.h"
#include "platform/errors_shown.h"
#include "speech/ISpeechNotify.h"

namespace corvane {

inline constexpr const char* kLineBreak = "\r\n";

/// How the pane speaks: through the sink that its host gave it, and into the
/// text pane for those who read along. Texts may be marked with their languages.
class Announcer {
 public:
  Announcer(MessageBox& box, ctlText& pane) : box_(box), pane_(pane) {}

  void SetSpeechNotify(ISpeechNotify* sink) { sink_ = sink; }

  /// How many times something was to be spoken.
  int Count() const { return count_; }

  /// Speaks; silent while there is no sink.
  void Say(const std::string& text, bool urgent = false) {
    ++count_;
    ErrorsShown(box_, "Say Error: ", [&] {
      if (sink_ != nullptr) sink_->Say(text, urgent);
    });
  }

  /// Speaks and tells what became of it, unless there is no sink.
  void SayThrough(const std::string& text, ISpeechNotify::Spoken spoken) {
    ++count_;
    ErrorsShown(box_, "Say Error: ", [&] {
      if (sink_ != nullptr) sink_->SayThrough(text, std::move(spoken));
    });
  }

  /// A page is being read, whose title comes: what is to be said behind it waits.
  void ExpectTitle() {
    title_.reset();
    after_title_.clear();
    expected_ = true;
  }
  /// The page has been read; a title that has not come will not.
  void ExpectNoTitle() {
    if (!std::exchange(expected_, false) || after_title_.empty()) return;
    Say(std::exchange(after_title_, ""));
  }

  /// Speaks a page's title.
  void SayTitle(const std::string& title) {
    if (!std::exchange(expected_, false)) after_title_.clear();
    title_ = std::make_shared<int>();
    SayThrough(title, [this, mine = std::weak_ptr(title_)](bool to_its_end) {
      if (mine.expired()) return;
      title_.reset();
      const std::string words = std::exchange(after_title_, "");
      if (to_its_end && !words.empty()) Say(words);
    });
  }

  /// Speaks as soon as the title has been spoken to its end; not at all when that is
  /// cut off or something else is said.
  void SayAfterTitle(const std::string& text) {
    if (!title_ && !expected_) return Say(text);
    after_title_ = text;
  }

  /// Adds the text as a line to the text pane and speaks it behind the title.
  void AddAndSayAfterTitle(const std::string& text) {
    if (!title_ && !expected_) return AddAndSay(text);
    after_title_ = text;
    ErrorsIgnored([&] { pane_.AddText(language::Unmarked(text) + kLineBreak, true); });
  }

  /// Speaks behind what is being spoken, which it does not cut off, and tells what
  /// became of it.
  void SayBehind(
      const std::string& text, ISpeechNotify::Spoken spoken = [](bool) {}) {
    ++count_;
    ErrorsShown(box_, "Say Error: ", [&] {
      if (sink_ == nullptr) return spoken(false);
      sink_->SayBehind(text, std::move(spoken));
    });
  }

  /// Adds the text as a line to the text pane and speaks it, before the pane lets
  /// waiting keys have their say.
  void AddAndSay(const std::string& text, bool urgent = false) {
    const std::string line = language::Unmarked(text) + kLineBreak;
    ErrorsIgnored([&] { pane_.AddText(line, true, [&] { Say(text, urgent); }); });
  }

  /// The same of what is the program's own, not a page's.
  void AddAndSayOwn(const std::string& text) { AddAndSayAs(text, Whose::Program, Sign::None); }
  /// Adds the words to the text pane and speaks them, or lets the sound for them be heard.
  void AddAndSign(const std::string& words, Sign sign) { AddAndSayAs(words, Whose::Anybody, sign); }

 private:
  void AddAndSayAs(const std::string& text, Whose whose, Sign sign) {
    const std::string line = language::Unmarked(text) + kLineBreak;
    ErrorsIgnored([&] {
      pane_.AddText(line, true, [&] {
        ++count_;
        ErrorsShown(box_, "Say Error: ", [&] {
          if (sink_ != nullptr) sink_->SayAs(text, whose, sign);
        });
      });
    });
  }

  MessageBox& box_;
  ctlText& pane_;
  ISpeechNotify* sink_ = nullptr;
  int count_ = 0;
  std::shared_ptr<int> title_;  // while it is being spoken
  bool expected_ = false;       // a title is about to be
  std::string after_title_;
};

}  // namespace corvane
