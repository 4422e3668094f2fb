#include "speech/SpeechOptions.h"

#include "base/language.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using testing::Contains;
using testing::SizeIs;

/// The page "Speech" of the dialog of options.
struct SpeechOptionsPage : testing::Test {
  Program p;
  std::vector<OwnOption> shown;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.voices = {{{"en", "en", "English (Great Britain)"},
                         {"en-us", "en-us", "English (America)"},
                         {"de", "de", "German"},
                         {"ru", "ru", "Russian"}},
                        {"Annie", "f2", "f4"}};
    p.StartTalking();
    shown = Page().list();
  }
  OwnOptions& Page() { return p.desktop.option_pages.at("Spe&ech"); }
  std::size_t IndexOf(const std::string& label) {
    for (std::size_t i = 0; i < shown.size(); ++i) {
      if (shown[i].label == label) return i;
    }
    throw std::runtime_error(label);
  }
  OwnOption& Option(const std::string& label) { return shown[IndexOf(label)]; }
  std::vector<std::string> Values() {
    std::vector<std::string> values;
    for (const OwnOption& option : shown) values.push_back(option.value);
    return values;
  }
  /// The user chooses a value; what the dialog shows then is `shown`.
  OwnChange Choose(const std::string& label, const std::string& value) {
    Option(label).value = value;
    OwnChange change = Page().try_out(Values(), IndexOf(label));
    shown = change.options;
    return change;
  }
  std::string Tags() {
    p.desktop.speech.calls.clear();
    p.Window(0)->MainApp()->Say("x", false);
    return p.desktop.speech.Spoken().at(0);
  }
};

TEST_F(SpeechOptionsPage, ShowsWhatIsInForce) {
  EXPECT_EQ(Option("Speed, words a minute").value, "150");
  EXPECT_EQ(Option("Speed, words a minute").choices.front(), "80");
  EXPECT_EQ(Option("Speed, words a minute").choices.back(), "900");
  EXPECT_EQ(Option("Pitch").value, "50");
  EXPECT_EQ(Option("Range of the pitch").value, "50");
  EXPECT_EQ(Option("Volume, percent").value, "100");
  EXPECT_EQ(Option("Punctuation that is named").value, "some");
  EXPECT_EQ(Option("Capital letters").value, "as small ones");
  EXPECT_EQ(Option("Digits one by one").value, "False");
  EXPECT_EQ(Option("Language").value, "English");
  EXPECT_THAT(Option("Language").choices, ElementsAre("English", "German", "Russian"));
  EXPECT_THAT(Option("Its voice").choices,
              ElementsAre("the usual one", "English (Great Britain)", "English (America)"));
  EXPECT_THAT(Option("Variant of the voice").choices,
              ElementsAre("the usual one", "Annie", "f2", "f4"));
}

TEST_F(SpeechOptionsPage, WhatIsChosenIsHeardAtOnceAndStoredInTheEnd) {
  Choose("Speed, words a minute", "300");
  EXPECT_EQ(Tags(), "\\Pit=90\\\\Spd=300\\x");
  EXPECT_EQ(p.desktop.settings.Main("SpeechSpeed"), "");
  Page().apply(Values());
  EXPECT_EQ(p.desktop.settings.Main("SpeechSpeed"), "300");
  EXPECT_EQ(Tags(), "\\Pit=90\\\\Spd=300\\x");
}

TEST_F(SpeechOptionsPage, WhatIsGivenUpIsTakenBack) {
  Choose("Volume, percent", "20");
  EXPECT_EQ(Tags(), "\\Pit=90\\\\Spd=150\\\\Vol=20\\x");
  Page().take_back();
  EXPECT_EQ(Tags(), "\\Pit=90\\\\Spd=150\\x");
  EXPECT_EQ(p.desktop.settings.Main("Volume"), "");
}

TEST_F(SpeechOptionsPage, AllOfThemCanBeChosen) {
  Choose("Pitch", "60");
  Choose("Range of the pitch", "0");
  Choose("Punctuation that is named", "all");
  Choose("Capital letters", "by a higher pitch");
  Choose("Digits one by one", "True");
  EXPECT_EQ(Tags(), "\\Pit=100\\\\Spd=150\\\\Rng=0\\\\Pun=3\\\\Cap=1\\\\Dig=1\\x");
}

TEST_F(SpeechOptionsPage, EachLanguageHasItsOwnChoices) {
  Choose("Language", "German");
  EXPECT_THAT(Option("Its voice").choices, ElementsAre("the usual one", "German"));
  EXPECT_THAT(Option("Words in it are heard").choices, SizeIs(3));
  EXPECT_EQ(Choose("Variant of the voice", "Annie").language, "de");
  Choose("Language", "Russian");
  EXPECT_EQ(Option("Variant of the voice").value, "the usual one");
  EXPECT_EQ(Choose("Words in it are heard", "not").language, "");
  EXPECT_EQ(Choose("Variant of the voice", "the usual one").language, "");
  Choose("Language", "English");
  EXPECT_THAT(Option("Words in it are heard").choices, ElementsAre("as the page says"));
  EXPECT_EQ(Choose("Its voice", "English (America)").language, language::kOfAPage)
      << "not in the voice that the program has for itself";
  Choose("Language", "German");
  EXPECT_EQ(Option("Variant of the voice").value, "Annie");
  Page().apply(Values());
  EXPECT_EQ(p.desktop.settings.Main("LanguageVoices"), "de:page:+Annie en:page:en-us ru:not");
}

TEST_F(SpeechOptionsPage, ASpeedOfTheKeysIsAmongTheChoices) {
  p.desktop.windows.active = p.Inside().form->hwnd();
  p.desktop.PressKey(kKeyPageUp, 0, kCtrlMask | kAltMask);
  shown = Page().list();
  EXPECT_EQ(Option("Speed, words a minute").value, "165");
  EXPECT_THAT(Option("Speed, words a minute").choices, Contains("165"));
}

TEST_F(SpeechOptionsPage, HoldsForAllWindowsAndAfterTheProgramsEnd) {
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  Choose("Speed, words a minute", "250");
  Page().apply(Values());
  p.desktop.speech.calls.clear();
  p.Inside(1).ctlWebBrowser1.Say("x");
  EXPECT_THAT(p.desktop.speech.Spoken(), Contains("\\Pit=90\\\\Spd=250\\x"));
  Program next;
  next.desktop.settings = p.desktop.settings;
  next.StartTalking();
  next.Window(0)->MainApp()->Say("x", false);
  EXPECT_THAT(next.desktop.speech.Spoken(), Contains("\\Pit=90\\\\Spd=250\\x"));
}

}  // namespace
}  // namespace corvane::tests
