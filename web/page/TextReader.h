#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/event.h"
#include "base/life.h"
#include "platform/engine.h"
#include "platform/later.h"
#include "platform/page_text.h"

namespace corvane {

/// Asks the page that a view shows for its text with its elements, and for what is done
/// with one of them.
class TextReader {
 public:
  using Done = std::function<void(const std::shared_ptr<PageText>&)>;

  /// `left`: the user has pressed Escape in an element of the page, and the page had no
  /// use for it. `gone`: what was to be used or get the focus is in the page no more.
  /// `changed`: as WebBrowser::TextChanged.
  struct Host {
    std::function<void(const PageElement&)> left;
    std::function<void()> gone;
    std::function<void()> changed;
  };
  TextReader(Engine& engine, Schedule schedule, Host host);
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  /// Never calls back before it returns; an earlier call that has not called back yet
  /// never will. Null where there is no such text: a document that runs no scripts, a
  /// page that is more than can be put together. A page that hangs never answers.
  void Read(Done done);

  /// Uses the element as a click of the user would.
  void Use(const PageElement& element);
  /// Gives the page's focus to the element, or to what is in it; `done` when it is there.
  void Focus(const PageElement& element, std::function<void()> done);
  /// As WebBrowser::ShowWords.
  void ShowWords(const PageElement& near, const std::string& words);
  /// Scrolls the page so that the element is seen.
  void Show(const PageElement& element);

 private:
  void Receive(const std::string& kind, const std::string& text);
  void Received(std::string text, const Life::Watch& wanted, const Done& done);
  void Changed();

  Engine& engine_;
  Schedule schedule_;
  Host host_;
  Life reading_;         // the last one, while it is wanted
  double asked_at_ = 0;  // as Schedule::now
  double took_ = -1;     // the last reading, in seconds; below 0: there was none
  Pending change_;       // until a change of the page is told
  Connection messages_;
};

}  // namespace corvane
