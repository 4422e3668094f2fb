#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "base/manner.h"
#include "browser/PaneContext.h"
#include "platform/page_words.h"

namespace corvane {

/// The desk of what a page says by itself. Urgent words cut off ordinary ones; the
/// others wait until what is being said is over, a few of them, the newest first to
/// stay. While a page is being read all wait until its title has been said. The same words are not
/// said twice within a second. What a page has to say ends with the page.
class LiveWords {
 public:
  explicit LiveWords(PaneContext& pane);

  /// Lets the next of "all", "important" and "none" hold for the present page and
  /// says which.
  void StepThroughChoices();
  /// Another page begins: nothing waits any more, and its own choice is none.
  void Forget();

 private:
  void Receive(const PageWords& words);
  void Opened(const PageWords& words);
  void Wait(const std::string& sentence);
  void Next();
  LiveWordsHeard Heard() const;
  bool IsWanted(const PageWords& words) const;
  PageWords InItsLanguage(PageWords words) const;
  bool PageIsBeingRead() const;
  void ForgetOld();
  bool WasJustSaid(const std::string& sentence);

  /// A sentence that was said, until a second has gone by since.
  struct Said {
    std::string sentence;
    std::unique_ptr<Timer> timer;
    Connection over;
  };

  PaneContext& pane_;
  std::unique_ptr<Timer> timRead_;  // looks whether the page has been read
  std::vector<Said> recent_;
  std::deque<std::string> waiting_;
  int left_out_ = 0;             // of those that waited
  std::shared_ptr<int> saying_;  // while one of them is being said
  LiveWordsHeard heard_;         // on the present page
  LiveWordsHeard chosen_;        // for all pages, when the page came
  Connections connections_;
};

}  // namespace corvane
