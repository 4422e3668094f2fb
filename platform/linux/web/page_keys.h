#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>

#include "base/life.h"
#include "platform/linux/glib/later.h"

namespace corvane::desktop {

/// The keys of the engine's view, and the ways in which the focus leaves it.
///
/// The engine takes every key first and sends it to the page's process. What the
/// page had no use for comes back through the window once more, and when Tab
/// leaves the page's last element the engine moves the focus on. Both come late
/// when the page was slow, and must then not act on whatever the user has gone to
/// meanwhile. And a page that does not answer must not hold the user: its Tab
/// leads out after a moment.
class PageKeys {
 public:
  struct Host {
    /// The user has pressed a key for the page.
    std::function<void(const GdkEventKey&)> input;
    /// Whether the page is known not to answer: its keys are then the window's.
    std::function<bool()> hung;
    /// Whether the page waits for the user, and so cannot answer.
    std::function<bool()> waits;
    /// Asks the page for a sign of life.
    std::function<void(std::function<void()> answered)> ask;
    /// Whether a select that opens a list has the page's focus.
    std::function<bool()> on_list;
    /// The user was led out of a page that did not answer (true); is back (false).
    std::function<void(bool)> left;
  };

  /// `patience`: seconds that Tab waits for the page.
  PageKeys(WebKitWebView* view, Host host, double patience);
  ~PageKeys();
  PageKeys(const PageKeys&) = delete;
  PageKeys& operator=(const PageKeys&) = delete;

 private:
  static void NameBackTab(GdkEventKey& event);
  static void OpenList(GdkEventKey& event);
  gboolean KeyPressed(GdkEventKey& event);
  void Keep(GdkEventKey& event);
  void WatchTab(bool back);
  void LeadOut(bool back);
  bool IsStale() const;
  gboolean KeyOfWindow(GdkEventKey& event);
  void WatchWindow();
  void ForgetWindow();

  GtkWidget* view_;
  const Host host_;
  const double patience_;
  GtkWidget* window_ = nullptr;
  Life asked_;  // the sign of life that Tab waits for
  Delay ask_;
  Delay tab_;
  bool left_ = false;
};

}  // namespace corvane::desktop
