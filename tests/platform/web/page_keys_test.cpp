// The ways in which the focus leaves a page, quick or slow.
#include <gmock/gmock.h>
#include <gtkmm/box.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>
#include <gtkmm/window.h>

#include <cstring>

#include "platform/linux/web/webkit_browser.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

struct OpenDisplay {
  OpenDisplay() {
    gtk_init(nullptr, nullptr);
    Gtk::Main::init_gtkmm_internals();
  }
};

/// A page between two fields of its window. The page is slow on Tab until the
/// server lets it go on.
class PageKeysTest : private OpenDisplay, public testing::Test {
 protected:
  static EngineOptions Options() {
    EngineOptions options = TestOptions();
    options.hang = {3600, 3600, 0.1, 0.3};
    return options;
  }
  PageKeysTest() {
    browser_ = std::make_unique<WebKitBrowser>("brwWebBrowser", engine_, windows_);
    window_.set_default_size(400, 300);
    box_.add(before_);
    box_.pack_start(browser_->widget(), true, true);
    box_.add(after_);
    window_.add(box_);
    window_.show_all();
  }
  void Open(const std::string& page) {
    server_.Page("/", page);
    browser_->Navigate2(server_.Url());
    ASSERT_TRUE(WaitUntil([&] { return !browser_->Busy(); }));
    window_.present();
    browser_->SetFocus();
    ASSERT_TRUE(WaitUntil([&] { return browser_->widget().has_focus(); }));
  }
  /// A page that hangs in the key that is pressed, until LetGo.
  void OpenSlow(const std::string& body) {
    server_.Handle("/go", [this](SoupServerMessage* message) {
      const char* answer = go_ ? "go" : "wait";
      soup_server_message_set_status(message, 200, nullptr);
      soup_server_message_set_response(message, "text/plain", SOUP_MEMORY_STATIC, answer,
                                       strlen(answer));
    });
    Open("<title>A</title>" + body +
         "<script>onkeydown = () => { let answer; do { const ask = new XMLHttpRequest();"
         "ask.open('GET', '/go', false); ask.send(); answer = ask.responseText;"
         "} while (answer != 'go'); }</script>");
  }
  /// Lets the slow page go on and waits until all that it had to tell has come.
  void LetGo() {
    go_ = true;
    browser_->Refresh();
    ASSERT_TRUE(WaitUntil([&] { return !browser_->Busy(); }));
  }
  void Press(guint key) { SendTestKey(browser_->widget().gobj(), key); }

  bool go_ = false;
  TestServer server_;
  WebEngine engine_{Options()};
  WindowTable windows_;
  Gtk::Window window_;
  Gtk::Box box_{Gtk::ORIENTATION_VERTICAL};
  Gtk::Entry before_;
  Gtk::Entry after_;
  std::unique_ptr<WebKitBrowser> browser_;
  Connections connections_;
};

TEST_F(PageKeysTest, TabOnTheLastElementGoesToTheNextControlOnly) {
  Open("<title>A</title><p>no links");
  Press(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
  browser_->Refresh();
  ASSERT_TRUE(WaitUntil([&] { return !browser_->Busy(); }));
  EXPECT_TRUE(after_.has_focus());
}

TEST_F(PageKeysTest, WhoComesBackToThePageGoesOnInIt) {
  Open("<title>A</title><p>no links");
  Press(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
  Open("<title>B</title><a href=/b>One</a>");
  int focused = 0;
  connections_ += browser_->Document()->links.at(0)->onfocus.Connect([&focused] { ++focused; });
  Press(GDK_KEY_Tab);
  EXPECT_TRUE(WaitUntil([&] { return focused == 1; }));
  EXPECT_TRUE(browser_->widget().has_focus());
}

TEST_F(PageKeysTest, TabStaysInAPageThatAnswers) {
  Open("<title>A</title><a href=/b>One</a><a href=/c>Two</a>");
  Press(GDK_KEY_Tab);
  const auto link = browser_->Document()->links.at(0);
  int focused = 0;
  connections_ += link->onfocus.Connect([&] { ++focused; });
  ASSERT_TRUE(WaitUntil([&] { return focused == 1; }));
  EXPECT_TRUE(browser_->widget().has_focus());
}

TEST_F(PageKeysTest, APageKeepsTheRightsThatAKeyGivesIt) {
  server_.Page("/may", "<title>B</title>");
  server_.Page("/may-not", "<title>C</title>");
  Open(
      "<title>A</title><script>onkeydown = () => setTimeout(() =>"
      "location = navigator.userActivation.isActive ? '/may' : '/may-not', 200)</script>");
  Press(GDK_KEY_a);
  ASSERT_TRUE(WaitUntil([&] { return browser_->LocationURL() != server_.Url(); }));
  EXPECT_EQ(browser_->LocationURL(), server_.Url("/may"));
}

TEST_F(PageKeysTest, TabLeadsOutOfAPageThatDoesNotAnswer) {
  OpenSlow("<a href=/b>One</a>");
  Press(GDK_KEY_Tab);
  EXPECT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
}

TEST_F(PageKeysTest, ShiftTabLeadsOutTheOtherWay) {
  OpenSlow("<a href=/b>One</a>");
  Press(GDK_KEY_ISO_Left_Tab);
  EXPECT_TRUE(WaitUntil([&] { return before_.has_focus(); }));
}

TEST_F(PageKeysTest, ALateAnswerMovesTheFocusNoFurther) {
  OpenSlow("<p>no links: Tab leads out of this page");
  Press(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
  LetGo();
  EXPECT_TRUE(after_.has_focus());
}

TEST_F(PageKeysTest, ALateAnswerTellsOfNoElement) {
  OpenSlow("<a href=/b>One</a>");
  const auto link = browser_->Document()->links.at(0);
  int focused = 0;
  connections_ += link->onfocus.Connect([&] { ++focused; });
  Press(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
  LetGo();
  EXPECT_EQ(focused, 0);
}

TEST_F(PageKeysTest, OtherKeysOfASlowPageDoNotGoToWhereTheUserIsThen) {
  OpenSlow("<p>no links");
  Press(GDK_KEY_a);
  Press(GDK_KEY_b);
  after_.grab_focus();
  LetGo();
  EXPECT_EQ(after_.get_text(), "");
}

TEST_F(PageKeysTest, WhoComesBackHearsThePageAgain) {
  OpenSlow("<a href=/b>One</a>");
  Press(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return after_.has_focus(); }));
  LetGo();
  browser_->SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return browser_->widget().has_focus(); }));
  const auto link = browser_->Document()->links.at(0);
  int focused = 0;
  connections_ += link->onfocus.Connect([&] { ++focused; });
  Press(GDK_KEY_Tab);
  EXPECT_TRUE(WaitUntil([&] { return focused == 1; }));
}

}  // namespace
}  // namespace corvane::desktop
