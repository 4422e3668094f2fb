// The browser control: the port over the engine's view.
#include "platform/linux/web/webkit_browser.h"

#include <gmock/gmock.h>
#include <gtkmm/box.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>
#include <gtkmm/window.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

/// Opens the display before anything else is made.
struct OpenDisplay {
  OpenDisplay() {
    gtk_init(nullptr, nullptr);
    Gtk::Main::init_gtkmm_internals();
  }
};

class WebKitBrowserTest : private OpenDisplay, public testing::Test {
 protected:
  WebKitBrowserTest() {
    browser_ = std::make_unique<WebKitBrowser>("brwWebBrowser", SharedEngine(), windows_);
    connections_ += browser_->DownloadBegin.Connect([this] { log_.push_back("begin"); });
    connections_ += browser_->DownloadComplete.Connect([this] { log_.push_back("complete"); });
    connections_ +=
        browser_->StatusTextChange.Connect([this](const std::string&) { ++status_texts_; });
    window_.set_default_size(400, 300);
    box_.add(entry_);
    box_.pack_start(browser_->widget(), true, true);
    window_.add(box_);
    window_.show_all();
  }

  void Go(const std::string& address) {
    browser_->Navigate2(address);
    ASSERT_TRUE(WaitUntil([&] { return !browser_->Busy(); }));
  }

  TestServer server_;
  WindowTable windows_;
  Gtk::Window window_;
  Gtk::Box box_{Gtk::ORIENTATION_VERTICAL};
  Gtk::Entry entry_;
  std::unique_ptr<WebKitBrowser> browser_;
  Connections connections_;
  std::vector<std::string> log_;
  int status_texts_ = 0;
};

TEST_F(WebKitBrowserTest, RaisesItsEventsAndHasADocument) {
  server_.Page("/", "<title>A</title>text");
  Go(server_.Url());
  EXPECT_THAT(log_, ElementsAre("begin", "complete"));
  EXPECT_GT(status_texts_, 0);
  EXPECT_EQ(browser_->LocationURL(), server_.Url());
  EXPECT_EQ(browser_->LocationName(), "A");
  ASSERT_NE(browser_->Document(), nullptr);
  EXPECT_EQ(browser_->Document()->body_innerText, "text");
}

TEST_F(WebKitBrowserTest, StandsInTheWindowTable) {
  EXPECT_EQ(windows_.ClassName(browser_->hwnd()), "Internet Explorer_Server");
  EXPECT_EQ(browser_->widget().get_name(), "brwWebBrowser");
}

TEST_F(WebKitBrowserTest, TakesTheFocus) {
  server_.Page("/", "<title>A</title>");
  Go(server_.Url());
  window_.present();
  entry_.grab_focus();
  ASSERT_TRUE(WaitUntil([&] { return entry_.has_focus(); }));
  int focused = 0;
  connections_ += browser_->GotFocus.Connect([&] { ++focused; });
  browser_->SetFocus();
  EXPECT_TRUE(WaitUntil([&] { return focused == 1; }));
}

TEST_F(WebKitBrowserTest, AKeyIsReportedOnceAlsoWhenThePageHasNoUseForIt) {
  server_.Page("/",
               "<title>A</title><p tabindex=0>text</p><script>"
               "onkeyup = () => document.title = 'released'</script>");
  Go(server_.Url());
  window_.present();
  browser_->SetFocus();
  GtkWidget* view = browser_->widget().gobj();
  ASSERT_TRUE(WaitUntil([&] { return gtk_widget_has_focus(view); }));
  std::vector<int> down;
  std::vector<int> up;
  connections_ += browser_->KeyDown.Connect([&](KeyEvent& key) { down.push_back(key.KeyCode); });
  connections_ += browser_->KeyUp.Connect([&](KeyEvent& key) { up.push_back(key.KeyCode); });
  SendTestKey(view, GDK_KEY_F8);
  SendTestKey(view, GDK_KEY_a);
  SendTestKey(view, GDK_KEY_b);
  ASSERT_TRUE(WaitUntil([&] { return browser_->LocationName() == "A" && up.size() >= 3; }));
  // What the page gave back has come by the time that the page answers a reading.
  browser_->Refresh();
  ASSERT_TRUE(WaitUntil([&] { return !browser_->Busy(); }));
  EXPECT_THAT(down, ElementsAre(kKeyF1 + 7, 'A', 'B'));
  EXPECT_THAT(up, ElementsAre(kKeyF1 + 7, 'A', 'B'));
}

TEST_F(WebKitBrowserTest, AKeyThatAHandlerTakesDoesNotReachThePage) {
  server_.Page("/", "<form><input name=q></form><script>document.forms[0].q.focus()</script>");
  Go(server_.Url());
  window_.present();
  browser_->SetFocus();
  GtkWidget* view = browser_->widget().gobj();
  ASSERT_TRUE(WaitUntil([&] { return gtk_widget_has_focus(view); }));
  auto connection = browser_->KeyDown.Connect([](KeyEvent& key) { key.KeyCode = 0; });
  SendTestKey(view, GDK_KEY_a);
  connection.Disconnect();
  const auto field = browser_->Document()->forms.at(0).elements.at(0);
  connections_ += field->onkeyup.Connect([&] { log_.push_back("up " + field->value); });
  SendTestKey(view, GDK_KEY_b);
  ASSERT_TRUE(WaitUntil([&] { return log_.back() == "up b"; })) << log_.back();
}

TEST_F(WebKitBrowserTest, MayBeDestroyedWhileAPageLoads) {
  server_.Stall("/");
  browser_->Navigate2(server_.Url());
  ASSERT_TRUE(WaitUntil([&] { return server_.Requests("/") == 1 && !log_.empty(); }));
  browser_.reset();
  EXPECT_THAT(log_, ElementsAre("begin"));
}

}  // namespace
}  // namespace corvane::desktop
