#pragma once

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/web/engine_view.h"
#include "platform/linux/web/web_engine.h"
#include "tests/platform/web/test_server.h"

namespace corvane::desktop {

/// Options for tests: nothing is kept on disk.
EngineOptions TestOptions();

/// Runs the main loop until the condition holds; false when it never does.
bool WaitUntil(const std::function<bool()>& condition);

/// Presses and releases a key in the widget, as the display would report it.
void SendTestKey(GtkWidget* widget, guint keyval, guint modifiers = 0);

/// One engine view in a window, with a log of what it reported.
class TestView {
 public:
  explicit TestView(WebEngine& engine);
  /// Takes the view that a page has opened, as the program would.
  static std::unique_ptr<TestView> TakeOpened(WebEngine& engine);
  ~TestView();
  TestView(const TestView&) = delete;
  TestView& operator=(const TestView&) = delete;

  Browser& operator*() { return view_->Page(); }
  Browser* operator->() { return &view_->Page(); }
  WebKitWebView* View() const { return view_->View(); }

  /// Goes there and waits until the page has been read.
  void Go(const std::string& address);
  /// Waits until nothing is loading; fails the test when that never comes.
  void WaitIdle();
  HTMLDocumentPtr Document() { return view_->Page().Document(); }
  std::string Body() { return Document() ? Document()->body_innerText : ""; }

  /// Called when the page opens a window.
  std::function<void()> new_window = [] {};
  /// Called when the page, or saving it, wants files.
  std::function<void(const FileRequest&)> files = [](const auto&) {};
  /// "begin", "complete", "close", "status TEXT" and "say TEXT" in the order
  /// reported.
  std::vector<std::string> log;
  /// The places that the user was led to; their words are in the log as well.
  std::vector<PagePlace> places;
  /// What the page said by itself.
  std::vector<PageWords> page_words;
  /// The elements that the user has left with Escape.
  std::vector<PageElement> left;
  /// The elements that the page's focus has come to.
  std::vector<PageElement> focused;
  /// How often the page's text was told to be no longer right.
  int text_changes = 0;
  std::vector<std::string> EventsWithoutStatus() const;
  bool HasStatus(const std::string& part) const;
  /// What the user was to hear.
  std::vector<std::string> Said() const;
  int Count(const std::string& entry) const;

  /// Gives the view the focus as a person would and types a key there.
  void Focus();
  void Key(guint keyval, guint modifiers = 0);
  void Click(double x, double y);
  /// Kills all page processes of this program.
  static void KillPageProcesses();
  /// Runs a script as the page itself would.
  void RunInPage(const std::string& script);
  /// Runs a script in the page later, as one that no user has asked for.
  void RunByItself(const std::string& script);
  std::string EvaluateInPage(const std::string& script);

 private:
  explicit TestView(std::unique_ptr<EngineView> view);
  void Listen();
  void Show();

  GtkWidget* window_ = nullptr;
  WebEvents events_;
  Connections connections_;
  std::unique_ptr<EngineView> view_;
};

/// The engine that most tests share.
WebEngine& SharedEngine();

/// A test with a server and a view.
class PageTest : public testing::Test {
 protected:
  TestServer server_;
  TestView view_{SharedEngine()};
};

}  // namespace corvane::desktop
