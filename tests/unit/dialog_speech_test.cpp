#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// What dialogs of the desktop say, and whose words are heard.
struct DialogSpeaking : testing::Test {
  Program p;

  void Say(const std::string& text, WindowHandle window = 0) {
    p.desktop.speak_dialog({text, window});
  }
  WindowHandle Handle(std::size_t window) { return p.Inside(window).form->hwnd(); }
  std::vector<std::string>& Calls() { return p.desktop.speech.calls; }
  std::string Voice(const std::string& text) {
    return "voice \\Pit=90\\\\Spd=150\\" + text + " (urgent)";
  }
  std::string Character(const std::string& text) {
    return "speak \\Pit=90\\\\Spd=150\\" + text + " (urgent)";
  }
  /// Two windows; the second one's speech is switched off.
  void StartTwo() {
    p.StartTalking();
    p.Inside(0).menu.mnuFileItem(0).Click.Raise();
    p.Inside(1).menu.mnuSpeech(0).Click.Raise();
    Calls().clear();
  }
};

TEST_F(DialogSpeaking, FollowsTheItemOfTheWindowThatTheDialogBelongsTo) {
  StartTwo();  // the stored choice is now "off"
  Say("Find in page", Handle(1));
  EXPECT_THAT(Calls(), IsEmpty());
  Say("Find in page", Handle(0));
  EXPECT_THAT(Calls(), ElementsAre("stop", Character("Find in page")));
}

TEST_F(DialogSpeaking, BelongsToTheWindowBehindAnotherDialogToo) {
  StartTwo();
  const auto behind = p.desktop.windows.Add("Save As", "FileDialog");
  p.desktop.windows.windows[behind].owner = Handle(0);
  Say("Replace", behind);
  EXPECT_THAT(Calls(), ElementsAre("stop", Character("Replace")));
  Calls().clear();
  p.desktop.windows.windows[behind].owner = Handle(1);
  Say("Replace", behind);
  EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(DialogSpeaking, WithoutAWindowTheStoredChoiceDecides) {
  Say("An error at the start");
  EXPECT_THAT(Calls(), IsEmpty());
  p.desktop.settings.Main("Speech") = "True";
  Say("An error at the start");
  EXPECT_THAT(Calls(), ElementsAre("stop", Voice("An error at the start")));
}

TEST_F(DialogSpeaking, IsHeardBeforeTheCharacterIsReady) {
  p.desktop.settings.Main("Speech") = "True";
  p.desktop.settings.Main("Rate") = "3";
  p.desktop.settings.Main("Pitch") = "1";
  p.Start();
  Say("A question", Handle(0));
  EXPECT_THAT(Calls(), ElementsAre("stop", "voice \\Pit=70\\\\Spd=200\\A question (urgent)"));
}

TEST_F(DialogSpeaking, IsHeardWhenNoCharacterCanBeLoaded) {
  p.desktop.speech.load_error = "talker.acf was not found";
  p.desktop.settings.Main("Speech") = "True";
  p.Start();
  for (FakeTimer* timer : std::vector(p.desktop.timers)) {
    if (timer->interval == 1) timer->Fire();
  }
  Calls().clear();
  Say("talker.acf was not found", Handle(0));
  EXPECT_THAT(Calls(), ElementsAre("stop", Voice("talker.acf was not found")));
}

TEST_F(DialogSpeaking, ControlSilencesItAlsoWithoutACharacter) {
  p.desktop.settings.Main("Speech") = "True";
  Say("An error at the start");
  Calls().clear();
  p.desktop.PressKey(kKeyControl);
  EXPECT_THAT(Calls(), ElementsAre("stop"));
}

TEST_F(DialogSpeaking, IsKeptFromWhatGoesOnBehindItUntilAKeyComes) {
  p.StartTalking();
  Calls().clear();
  Say("Keep this file?", Handle(0));
  const std::string kept = "stop but " + std::to_string(p.desktop.speech.last_id);
  p.Window(0)->Say("Done", false);
  p.Window(0)->Say("New window", true);
  EXPECT_THAT(std::vector(Calls().begin() + 2, Calls().end()),
              ElementsAre(kept, "speak \\Pit=90\\\\Spd=150\\Done", kept, Character("New window")));
  p.desktop.PressKey(kKeyTab);
  Calls().clear();
  p.Window(0)->Say("Back Button", true);
  EXPECT_EQ(Calls().front(), "stop");
}

TEST_F(DialogSpeaking, CutsOffAnothersWords) {
  p.StartTalking();
  Say("First. OK Button", Handle(0));
  Calls().clear();
  Say("Second. OK Button", Handle(0));
  EXPECT_EQ(Calls().front(), "stop");
}

TEST_F(DialogSpeaking, IsNotTakenForTheEndOfWhatIsReadOn) {
  p.StartTalking();
  p.Spoken();
  bool told = false;
  bool to_its_end = true;
  p.Window(0)->SayThrough("A paragraph", [&](bool spoken) {
    told = true;
    to_its_end = spoken;
  });
  Say("A question", Handle(0));
  EXPECT_TRUE(told);
  EXPECT_FALSE(to_its_end);
}

TEST_F(DialogSpeaking, StoredStepsThatAreNoneCountAsTheMiddle) {
  p.desktop.settings.Main("Speech") = "True";
  for (const char* wrong : {"-3", "5", "", "fast"}) {
    p.desktop.settings.Main("Rate") = wrong;
    p.desktop.settings.Main("Pitch") = wrong;
    Calls().clear();
    Say("An error");
    EXPECT_EQ(Calls().back(), Voice("An error")) << wrong;
  }
}

}  // namespace
}  // namespace corvane::tests
