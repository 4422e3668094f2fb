#include "speech/SpeechChoices.h"

#include "base/language.h"
#include "speech/SpeechSettings.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using testing::Contains;
using testing::EndsWith;
using testing::StartsWith;

/// How what is chosen reaches the voice.
struct SpeechChosen : testing::Test {
  Program p;

  std::string& Stored(const char* key) { return p.desktop.settings.Main(key); }
  /// All that the voice gets of words in a language, tags included.
  std::string Heard(const std::string& words, const std::string& language = "") {
    p.desktop.speech.calls.clear();
    p.Service()->Say(language::Marked(words, language), false);
    return p.desktop.speech.Spoken().at(0);
  }
  void Press(int key) { p.desktop.PressKey(key, 0, kCtrlMask | kAltMask); }
};

TEST_F(SpeechChosen, WithoutAnyChoiceTheVoiceGetsWhatItAlwaysGot) {
  Stored("Manner") = "1";
  p.StartTalking();
  EXPECT_EQ(Heard("Title"), "\\Pit=90\\\\Spd=150\\Title");
}

TEST_F(SpeechChosen, TheMenusStepsGoAroundTheChosenSpeedAndPitch) {
  Stored("SpeechSpeed") = "400";
  Stored("SpeechPitch") = "60";
  p.StartTalking();
  EXPECT_EQ(Heard("Title"), "\\Pit=100\\\\Spd=400\\Title");
  p.Inside().menu.mnuRate(4).Click.Raise();
  p.Inside().menu.mnuPitch(0).Click.Raise();
  EXPECT_EQ(Heard("Title"), "\\Pit=60\\\\Spd=500\\Title");
  p.Inside().menu.mnuRate(0).Click.Raise();
  EXPECT_EQ(Heard("Title"), "\\Pit=60\\\\Spd=300\\Title");
}

TEST_F(SpeechChosen, NoStepIsFasterThanTheFastest) {
  Stored("SpeechSpeed") = "900";
  Stored("Rate") = "4";
  p.StartTalking();
  EXPECT_THAT(Heard("Title"), StartsWith("\\Pit=90\\\\Spd=900\\"));
}

TEST_F(SpeechChosen, WhatIsChosenHasItsTag) {
  Stored("PitchRange") = "20";
  Stored("Volume") = "70";
  Stored("Punctuation") = "most";
  Stored("Capitals") = "word";
  Stored("Digits") = "True";
  p.StartTalking();
  EXPECT_EQ(Heard("Title"),
            "\\Pit=90\\\\Spd=150\\\\Rng=20\\\\Vol=70\\\\Pun=2\\\\Cap=2\\\\Dig=1\\Title");
}

TEST_F(SpeechChosen, TheGreetingSoundsSoToo) {
  Stored("Speech") = "True";
  Stored("SpeechSpeed") = "300";
  Stored("LanguageVoices") = "en:page:en-us+f2";
  p.Start();
  for (FakeTimer* timer : std::vector(p.desktop.timers)) {
    if (timer->interval == 1 && timer->enabled) timer->Fire();
  }
  p.desktop.speech.agent->CompleteLast();
  p.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(p.desktop.speech.Spoken(),
              ElementsAre("\\Spd=300\\\\Vce=en-us+f2\\Hello, welcome to Corvane 2000"));
}

TEST_F(SpeechChosen, SoundsStandForTheWordsOfAPageOnItsWay) {
  Stored("Sounds") = "True";
  p.StartTalking();
  p.desktop.speech.calls.clear();
  p.Browser().DownloadBegin.Raise();
  EXPECT_THAT(p.desktop.speech.Spoken(), Contains("\\Pit=90\\\\Spd=150\\\\Snd=1\\Working..."));
  p.Read(MakePage("http://a/", "Done", "text", {}));
  EXPECT_THAT(p.desktop.speech.Spoken(), Contains("\\Pit=90\\\\Spd=150\\\\Snd=2\\Done"));
  EXPECT_THAT(p.desktop.speech.Spoken(), Contains("\\Pit=90\\\\Spd=150\\Done"))
      << "a page that is called so is no sound";
}

TEST_F(SpeechChosen, ALanguageHasItsVoice) {
  Stored("Manner") = "1";
  Stored("LanguageVoices") = "de:page:+f2 en:page:en-us";
  p.StartTalking();
  EXPECT_THAT(Heard("Preise", "de-at"), EndsWith("\\\\Lng=de-at\\\\Vce=+f2\\Preise"));
  EXPECT_THAT(Heard("Prices", "en"), EndsWith("\\\\Vce=en-us\\Prices"));
}

TEST_F(SpeechChosen, ALanguageCanBeSpokenByTheOwnVoiceOrNotAtAll) {
  Stored("Manner") = "1";
  Stored("LanguageVoices") = "de:own fr:not";
  p.StartTalking();
  EXPECT_EQ(Heard("Preise", "de"), "\\Pit=90\\\\Spd=150\\Preise");
  EXPECT_EQ(Heard("Prix", "fr"), "\\Pit=90\\\\Spd=150\\French text");
}

TEST_F(SpeechChosen, AMissingVoiceIsToldOnceAndTheNearestReads) {
  Stored("Manner") = "1";
  p.desktop.voices.voices = {{"de", "de", "German"}, {"en", "en", "English"}};
  p.StartTalking();
  EXPECT_EQ(Heard("Qapla", "tlh"), "\\Pit=90\\\\Spd=150\\No voice for Klingon. \\Lng=tlh\\Qapla");
  EXPECT_EQ(Heard("Qapla", "tlh"), "\\Pit=90\\\\Spd=150\\\\Lng=tlh\\Qapla");
  EXPECT_EQ(Heard("Grüezi", "gsw"),
            "\\Pit=90\\\\Spd=150\\No voice for Swiss German, German "
            "reads it. \\Lng=gsw\\\\Vce=de\\Grüezi");
  EXPECT_EQ(Heard("Grüezi", "gsw"), "\\Pit=90\\\\Spd=150\\\\Lng=gsw\\\\Vce=de\\Grüezi");
  EXPECT_EQ(Heard("Preise", "de"), "\\Pit=90\\\\Spd=150\\\\Lng=de\\Preise");
}

TEST_F(SpeechChosen, AMissingVoiceThatWasCutOffIsToldAgain) {
  Stored("Manner") = "1";
  p.desktop.voices.voices = {{"en", "en", "English"}};
  p.StartTalking();
  EXPECT_EQ(Heard("Qapla", "tlh"), "\\Pit=90\\\\Spd=150\\No voice for Klingon. \\Lng=tlh\\Qapla");
  p.desktop.speech.agent->CutOff();
  EXPECT_EQ(Heard("link, " + language::Marked("Qapla", "tlh")),
            "\\Pit=90\\\\Spd=150\\No voice for Klingon. link, \\Lng=tlh\\Qapla");
  p.desktop.speech.agent->CompleteLast();
  EXPECT_EQ(Heard("Qapla", "tlh"), "\\Pit=90\\\\Spd=150\\\\Lng=tlh\\Qapla");
}

TEST_F(SpeechChosen, AKeyMakesSpeechATenthFasterWhereverTheUserIs) {
  Stored("SpeechSpeed") = "200";
  p.StartTalking();
  p.desktop.windows.active = p.Inside().form->hwnd();
  Press(kKeyPageUp);
  EXPECT_THAT(p.Spoken(), ElementsAre("Speed 220"));
  EXPECT_EQ(Stored("SpeechSpeed"), "220");
  Press(kKeyPageDown);
  EXPECT_THAT(p.desktop.speech.Spoken(), ElementsAre("\\Pit=90\\\\Spd=198\\Speed 198"));
}

TEST_F(SpeechChosen, SpeedHasItsEnds) {
  FakeSettings store;
  store.Main("SpeechSpeed") = "890";
  SpeechSettings settings(store);
  settings.Read();
  EXPECT_EQ(settings.ChangeSpeed(true), 900);
  EXPECT_EQ(settings.ChangeSpeed(true), 900);
  for (int i = 0; i < 50; ++i) settings.ChangeSpeed(false);
  EXPECT_EQ(settings.Current().speed, 80);
}

TEST_F(SpeechChosen, TheKeyDoesNothingWhereKeysAreExplainedAndWhereSpeechIsOff) {
  Stored("Manner") = "1";
  p.StartTalking();
  p.desktop.windows.active = p.Inside().form->hwnd();
  KeyEvent help{kKeyF1, kCtrlMask};
  p.Inside().form->KeyDown.Raise(help);
  p.Spoken();
  Press(kKeyPageUp);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.Inside().form->KeyDown.Raise(help = {kKeyF1, kCtrlMask});
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  p.Spoken();
  Press(kKeyPageUp);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(Stored("SpeechSpeed"), "");
}

TEST_F(SpeechChosen, TheKeysEchoDoesNotCutTheSpeedOff) {
  Stored("KeyEcho") = "True";
  p.StartTalking();
  p.desktop.windows.active = p.Inside().form->hwnd();
  p.Spoken();
  Press(kKeyPageUp);
  EXPECT_THAT(p.Spoken(), ElementsAre("Speed 165"));
}

TEST(SpeechSettings, WhatIsStoredComesBack) {
  FakeSettings store;
  SpeechSettings settings(store);
  SpeechChoices choices{.speed = 333,
                        .pitch = 70,
                        .range = 0,
                        .volume = 40,
                        .punctuation = Punctuation::All,
                        .capitals = Capitals::ByPitch,
                        .digits = true,
                        .sounds = true,
                        .languages = {{"de", {LanguageHeard::AsThePageSays, "de", "f3"}},
                                      {"fr", {LanguageHeard::InOwnVoice}},
                                      {"ru", {LanguageHeard::Not}},
                                      {"sv", {LanguageHeard::AsThePageSays, "", "Annie"}}}};
  settings.Keep(choices);
  EXPECT_EQ(store.Main("LanguageVoices"), "de:page:de+f3 fr:own ru:not sv:page:+Annie");
  SpeechSettings again(store);
  EXPECT_THAT(again.Read(), IsEmpty());
  EXPECT_EQ(again.Current(), choices);
}

TEST(SpeechSettings, NothingIsStoredThatNobodyHasChosen) {
  FakeSettings store;
  SpeechSettings settings(store);
  settings.Keep(SpeechChoices{.volume = 80});
  EXPECT_EQ(store.Main("Volume"), "80");
  EXPECT_EQ(store.Main("SpeechSpeed"), "");
}

TEST(SpeechSettings, NonsenseCountsAsNotStoredAndIsTold) {
  for (const auto& [key, value] :
       std::vector<std::pair<const char*, const char*>>{{"SpeechSpeed", "79"},
                                                        {"SpeechSpeed", "901"},
                                                        {"SpeechSpeed", "fast"},
                                                        {"SpeechPitch", "-1"},
                                                        {"PitchRange", "101"},
                                                        {"Volume", "0"},
                                                        {"Punctuation", "few"},
                                                        {"Capitals", "yes"},
                                                        {"Digits", "1"},
                                                        {"Sounds", "true"},
                                                        {"LanguageVoices", "de"},
                                                        {"LanguageVoices", "de:maybe"},
                                                        {"LanguageVoices", "de-at:page"},
                                                        {"LanguageVoices", "de:page:../../x"},
                                                        {"LanguageVoices", "de:page:de+a/b"},
                                                        {"LanguageVoices", ":page"}}) {
    FakeSettings store;
    store.Main(key) = value;
    SpeechSettings settings(store);
    EXPECT_THAT(settings.Read(), ElementsAre(key)) << value;
    EXPECT_EQ(settings.Current(), SpeechChoices()) << key << "=" << value;
  }
}

TEST(LanguageNames, AreEnglishAndNeverMissing) {
  EXPECT_EQ(language::Name("de"), "German");
  EXPECT_EQ(language::Name("pt-br"), "Portuguese");
  EXPECT_EQ(language::Name("zu"), "Zulu");
  EXPECT_EQ(language::Name("aa"), "Afar");
  EXPECT_EQ(language::Name("qqq"), "language qqq");
}

}  // namespace
}  // namespace corvane::tests
