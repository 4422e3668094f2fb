#include "base/language.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// Alerts of pages where none of them may be lost, in a program with two windows.
struct PageAlerts : testing::Test {
  Program p;
  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.StartTalking();
    p.Inside(0).menu.mnuFileItem(0).Click.Raise();
    p.Spoken();
  }
  void Alert(const std::string& message, std::size_t window) {
    const auto alert = p.desktop.windows.Add("Microsoft Internet Explorer", "#32770");
    p.desktop.windows.Add("OK", "Button", alert);
    p.desktop.windows.Add(message, "Static", alert);
    p.desktop.windows.windows[alert].owner = p.Inside(window).form->hwnd();
    p.desktop.hook->Activated.Raise(alert);
  }
  void ASecondLater() {
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 1000) timer->Fire();
    }
  }
  FakeForm& Box() { return p.desktop.Get<FakeForm>("MSAgent"); }
  std::string Text() { return p.desktop.Get<FakeTextBox>("Text1").text; }
  void Ok() { p.desktop.Get<FakeCommandButton>("cmdOK").Click.Raise(); }
};

TEST_F(PageAlerts, AreAllShownAndSpokenOneAfterTheOther) {
  Alert("first", 0);
  Alert("second", 0);
  ASecondLater();
  EXPECT_EQ(Text(), "first");
  EXPECT_THAT(p.Spoken(), ElementsAre("first (urgent)", "OK button"));
  Alert("third", 0);
  ASecondLater();
  EXPECT_EQ(Text(), "first") << "stays until the user closes it";
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Ok();
  EXPECT_EQ(Text(), "second");
  EXPECT_TRUE(Box().visible);
  EXPECT_THAT(p.Spoken(), ElementsAre("second (urgent)", "OK button"));
  Box().Close(Form::UnloadMode::ControlMenu);
  EXPECT_EQ(Text(), "third");
  Ok();
  EXPECT_FALSE(Box().visible);
}

TEST_F(PageAlerts, AppearOverTheWindowWhosePageHasThem) {
  Alert("of the second", 1);
  Alert("of the first", 0);
  ASecondLater();
  EXPECT_EQ(Box().owner, p.Inside(1).form.get());
  Ok();
  EXPECT_EQ(Box().owner, p.Inside(0).form.get());
}

TEST_F(PageAlerts, OfAWindowThatHasGoneAppearAllTheSame) {
  Alert("last words", 1);
  p.Window(1)->Unload();
  ASecondLater();
  EXPECT_EQ(Text(), "last words");
  EXPECT_EQ(Box().owner, p.Inside(0).form.get());
}

TEST_F(PageAlerts, ThatStillWaitAreShownWhenSpeechGoesOff) {
  Alert("first", 0);
  Alert("second", 0);
  ASecondLater();
  p.Inside(0).menu.mnuSpeech(0).Click.Raise();
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(p.desktop.speech.agent, nullptr);
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre(language::Marked("second", language::kOfAPage)));
}

TEST_F(PageAlerts, OfASilentWindowAreShownInSilence) {
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  p.desktop.speech.calls.clear();
  Alert("Hi", 1);
  ASecondLater();
  EXPECT_TRUE(Box().visible);
  EXPECT_THAT(p.desktop.speech.calls, IsEmpty());
}

/// Keys and menus of windows, one of which is silent.
struct SilentWindow : testing::Test {
  Program p;
  void Start(const char* manner) {
    p.desktop.settings.Main("Manner") = manner;
    p.desktop.settings.Main("KeyEcho") = "True";
    p.StartTalking();
    p.Inside(0).menu.mnuFileItem(0).Click.Raise();
    p.Inside(1).menu.mnuSpeech(0).Click.Raise();
    p.Service()->KeyBoardEcho(true);
    p.Spoken();
  }
  std::vector<std::string> KeyAndItem(WindowHandle active) {
    p.desktop.windows.active = active;
    p.desktop.PressKey('A', U'a');
    p.desktop.message_hook->MenuSelected.Raise({5, kMenuHilite, "&New Window"});
    return p.Spoken();
  }
};

TEST_F(SilentWindow, NamesNeitherKeysNorMenus) {
  Start("1");
  EXPECT_THAT(KeyAndItem(p.Inside(1).form->hwnd()), IsEmpty());
  EXPECT_THAT(KeyAndItem(p.Inside(0).form->hwnd()), ElementsAre("A (urgent)", "New Window"));
}

TEST_F(SilentWindow, AlsoInItsDialogs) {
  Start("1");
  const auto dialog = p.desktop.windows.Add("Open", "FileDialog");
  p.desktop.windows.windows[dialog].owner = p.Inside(1).form->hwnd();
  EXPECT_THAT(KeyAndItem(dialog), IsEmpty());
}

TEST_F(SilentWindow, NamesThemWhereThatIsEstablished) {
  Start("0");
  EXPECT_THAT(KeyAndItem(p.Inside(1).form->hwnd()), ElementsAre("A (urgent)", "New Window"));
}

TEST_F(SilentWindow, ControlSilencesThereToo) {
  Start("1");
  p.desktop.windows.active = p.Inside(1).form->hwnd();
  p.desktop.speech.calls.clear();
  p.desktop.PressKey(kKeyControl);
  EXPECT_THAT(p.desktop.speech.calls, ElementsAre("stop"));
}

}  // namespace
}  // namespace corvane::tests
