#include <gdk/gdkkeysyms.h>

#include "platform/linux/gtk/dialogs/alert_window.h"
#include "platform/linux/gtk/dialogs/message_box.h"
#include "platform/linux/gtk/hooks/activation_hook.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class MessageTest : public test::DesktopTest {
 protected:
  // The dialog that is on the screen, null when there is none.
  static GtkWindow* Dialog() {
    GtkWindow* found = nullptr;
    auto* all = gtk_window_list_toplevels();
    for (auto* link = all; link; link = link->next) {
      if (GTK_IS_MESSAGE_DIALOG(link->data) && gtk_widget_get_mapped(GTK_WIDGET(link->data)) &&
          gtk_window_is_active(GTK_WINDOW(link->data))) {
        found = GTK_WINDOW(link->data);
      }
    }
    g_list_free(all);
    return found;
  }
  static std::string TextOf(GtkWindow* dialog) {
    char* text = nullptr;
    g_object_get(dialog, "text", &text, nullptr);
    std::string result(text);
    g_free(text);
    return result;
  }
  void WaitForDialog(const std::string& text) {
    WaitFor("the box: " + text, [&] { return Dialog() && TextOf(Dialog()) == text; });
  }
};

class MessageBoxTest : public MessageTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    listening_ += box_.LastClosed.Connect([this] { ++last_closed_; });
  }
  std::vector<std::string> spoken_;
  MessageBoxQueue box_{windows_, "Corvane",
                       [this](const std::string& text, GtkWindow*) { spoken_.push_back(text); }};
  Connections listening_;
  int last_closed_ = 0;
};

TEST_F(MessageBoxTest, BoxesFollowOneAfterTheOtherAndAreSpoken) {
  box_.Show("first", MessageBox::Icon::Critical);
  box_.Show("second <b>", MessageBox::Icon::Information, "Title");
  EXPECT_TRUE(box_.AnyOpen());
  WaitForDialog("first");
  EXPECT_THAT(spoken_, ElementsAre("first. OK Button"));
  EXPECT_NE(windows_.FindWindow("Corvane"), 0U);
  Outside({"xdotool", "key", "Return"});
  WaitForDialog("second <b>");
  EXPECT_EQ(windows_.FindWindow("Corvane"), 0U);
  EXPECT_NE(windows_.FindWindow("Title"), 0U);
  EXPECT_EQ(last_closed_, 0);
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the end", [&] { return last_closed_ == 1; });
  EXPECT_FALSE(box_.AnyOpen());
  EXPECT_THAT(spoken_, ElementsAre("first. OK Button", "second <b>. OK Button"));
  EXPECT_EQ(windows_.FirstThreadWindow(), 0U);
}

TEST_F(MessageBoxTest, F1SpeaksTheMessageAgain) {
  box_.Show("what happened", MessageBox::Icon::Critical);
  WaitForDialog("what happened");
  Outside({"xdotool", "key", "F1"});
  WaitFor("the words again", [&] { return spoken_.size() == 2; });
  EXPECT_EQ(spoken_[1], spoken_[0]);
  Outside({"xdotool", "key", "Return"});
  WaitFor("the end", [&] { return last_closed_ == 1; });
}

TEST_F(MessageBoxTest, ABoxCanBeClosedThroughTheTable) {
  box_.Show("text", MessageBox::Icon::Exclamation);
  WaitForDialog("text");
  windows_.PostClose(windows_.FindWindow("Corvane"));
  WaitFor("the end", [&] { return last_closed_ == 1; });
}

TEST_F(MessageBoxTest, TheDialogIsAccessible) {
  box_.Show("what happened", MessageBox::Icon::Critical);
  WaitForDialog("what happened");
  auto* accessible = gtk_widget_get_accessible(GTK_WIDGET(Dialog()));
  EXPECT_STREQ(atk_object_get_description(accessible), "what happened");
  auto* focus = gtk_window_get_focus(Dialog());
  ASSERT_NE(focus, nullptr);
  EXPECT_STREQ(atk_object_get_name(gtk_widget_get_accessible(focus)), "OK");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the end", [&] { return last_closed_ == 1; });
}

TEST_F(MessageBoxTest, WhoWaitsForABoxIsToldWhenTheUserIsBackInTheWindowUnderIt) {
  test::TestWindow under(windows_);
  under.Show();
  WaitFor("the window", [] { return ActiveWindow() != nullptr; });
  const auto* window = ActiveWindow();
  std::vector<std::string> told;
  const auto tell = [&](const char* box) {
    told.push_back(std::string(box) + (ActiveWindow() == window ? " in the window" : " elsewhere"));
  };
  box_.Show("first", MessageBox::Icon::Critical, "", [&] { tell("first"); });
  box_.Show("second", MessageBox::Icon::Critical, "", [&] { tell("second"); });
  WaitForDialog("first");
  Outside({"xdotool", "key", "Return"});
  WaitForDialog("second");
  EXPECT_THAT(told, testing::IsEmpty());
  Outside({"xdotool", "key", "Return"});
  WaitFor("the word", [&] { return told.size() == 2; });
  EXPECT_THAT(told, ElementsAre("first in the window", "second in the window"));
}

TEST_F(MessageBoxTest, WhoWaitsForABoxIsToldAlsoWhenThereIsNoWindowUnderIt) {
  bool told = false;
  box_.Show("text", MessageBox::Icon::Critical, "", [&] { told = true; });
  WaitForDialog("text");
  Outside({"xdotool", "key", "Return"});
  WaitFor("the word", [&] { return told; });
}

class AlertTest : public MessageTest {
 protected:
  std::unique_ptr<AlertWindow> Make(const std::string& text) {
    return std::make_unique<AlertWindow>(windows_, AlertWindow::kPageCaption, text,
                                         MessageBox::Icon::Exclamation, nullptr,
                                         [this] { ++done_; });
  }
  int done_ = 0;
};

TEST_F(AlertTest, TheTableShowsButtonAndMessage) {
  const auto alert = Make("Hello from the page");
  EXPECT_EQ(windows_.Text(alert->hwnd()), "Microsoft Internet Explorer");
  const auto button = windows_.FirstChild(alert->hwnd());
  EXPECT_EQ(windows_.Text(button), "OK");
  EXPECT_EQ(windows_.Text(windows_.NextSibling(button)), "Hello from the page");
}

TEST_F(AlertTest, EnterAndEscapeCloseIt) {
  for (const char* key : {"Return", "Escape"}) {
    const auto alert = Make(key);
    alert->Show();
    WaitForDialog(key);
    Outside({"xdotool", "key", key});
    WaitFor("the answer", [&] { return done_ == 1; });
    Settle();
    EXPECT_EQ(Dialog(), nullptr);
    done_ = 0;
  }
}

TEST_F(AlertTest, AListenerMayTakeItOverBeforeItIsSeen) {
  TableActivationHook hook(windows_);
  hook.SetEnabled(true);
  std::string message;
  bool seen = false;
  const auto alert = Make("intercepted");
  const auto listening = hook.Activated.Connect([&](WindowHandle window) {
    seen = seen || alert->OnScreen();
    message = windows_.Text(windows_.NextSibling(windows_.FirstChild(window)));
    windows_.PostClose(window);
  });
  alert->Show();
  WaitFor("the close request", [&] { return done_ == 1; });
  Settle();
  EXPECT_EQ(message, "intercepted");
  EXPECT_FALSE(seen);
  EXPECT_FALSE(alert->OnScreen());
  EXPECT_EQ(done_, 1);
}

TEST_F(AlertTest, AnAlertMayBeDestroyedWhenItIsDoneOrWhileItIsShown) {
  std::unique_ptr<AlertWindow> alert;
  alert = std::make_unique<AlertWindow>(windows_, "caption", "text", MessageBox::Icon::Critical,
                                        nullptr, [&] { alert.reset(); });
  alert->Show();
  WaitForDialog("text");
  alert->Close();
  EXPECT_EQ(alert, nullptr);
  auto shown = Make("gone");
  shown->Show();
  WaitForDialog("gone");
  shown.reset();
  Settle();
  EXPECT_EQ(Dialog(), nullptr);
  auto unseen = Make("never");
  unseen->Show();
  unseen.reset();
  Settle();
  EXPECT_EQ(done_, 0);
}

}  // namespace
}  // namespace corvane::desktop
