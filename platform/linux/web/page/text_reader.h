#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/glib/later.h"
#include "platform/linux/web/page/page_script.h"
#include "platform/page_text.h"

namespace corvane::desktop {

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
  TextReader(WebKitWebView* view, Host host);
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  /// Never calls back before it returns; an earlier call that has not called back yet
  /// never will. Null where there is no such text: a document that runs no scripts, a
  /// page that is more than can be put together. A page that hangs never answers.
  void Read(Done done);
  /// The page is left: what is asked for never comes.
  void Forget();

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
  void Received(std::string text, const std::weak_ptr<int>& turn, const Done& done);
  void Changed();

  WebKitWebView* view_;
  Host host_;
  PageScript script_;
  std::shared_ptr<int> turn_;  // the reading under way; alive only while it is wanted
  gint64 asked_at_ = 0;        // microseconds
  double took_ = -1;           // the last reading, in seconds; below 0: there was none
  Delay change_;               // until a change of the page is told
};

}  // namespace corvane::desktop
