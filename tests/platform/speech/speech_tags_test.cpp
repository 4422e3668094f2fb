#include "platform/linux/speech/speech_tags.h"

#include <gmock/gmock.h>

namespace corvane::desktop {
namespace {

TEST(SpeechTags, AreTakenOffTheStart) {
  const TaggedText tagged = ReadSpeechTags("\\Pit=90\\\\Spd=150\\Hello");
  EXPECT_EQ(tagged.pitch, 90);
  EXPECT_EQ(tagged.speed, 150);
  EXPECT_EQ(tagged.text, "Hello");
}

TEST(SpeechTags, TextWithoutTagsIsUnchanged) {
  const TaggedText tagged = ReadSpeechTags("Hello, welcome");
  EXPECT_EQ(tagged.pitch, std::nullopt);
  EXPECT_EQ(tagged.speed, std::nullopt);
  EXPECT_EQ(tagged.text, "Hello, welcome");
}

TEST(SpeechTags, AnEmptyNumberAsksForTheCharactersOwn) {
  const TaggedText tagged = ReadSpeechTags("\\Pit=\\\\Spd=\\Text");
  EXPECT_EQ(tagged.pitch, std::nullopt);
  EXPECT_EQ(tagged.speed, std::nullopt);
  EXPECT_EQ(tagged.text, "Text");
}

TEST(SpeechTags, CapitalsAndOrderDoNotMatterAndTheLastOneCounts) {
  const TaggedText tagged = ReadSpeechTags("\\SPD=200\\\\pit=50\\\\Spd=100\\x");
  EXPECT_EQ(tagged.pitch, 50);
  EXPECT_EQ(tagged.speed, 100);
  EXPECT_EQ(tagged.text, "x");
}

TEST(SpeechTags, WhateverIsNoTagIsText) {
  for (const std::string text :
       {"\\", "\\Pit", "\\Pit=", "\\Pit=90", "\\Pit=-1\\x", "\\Pit= 90\\x", "\\Pit=9x\\y",
        "\\Xyz=3\\x", "\\Pit=1234567\\x", "x\\Pit=90\\", "/Pit=90/x", ""}) {
    const TaggedText tagged = ReadSpeechTags(text);
    EXPECT_EQ(tagged.pitch, std::nullopt) << text;
    EXPECT_EQ(tagged.text, text);
  }
}

TEST(SpeechTags, ATagInsideTheTextIsText) {
  const TaggedText tagged = ReadSpeechTags("\\Spd=250\\a\\Pit=50\\b");
  EXPECT_EQ(tagged.speed, 250);
  EXPECT_EQ(tagged.pitch, std::nullopt);
  EXPECT_EQ(tagged.text, "a\\Pit=50\\b");
}

TEST(SpeechTags, LanguagesAreFoundAnywhere) {
  const TaggedText tagged = ReadSpeechTags("\\Spd=250\\link, \\Lng=de\\Preise\\Lng=\\, visited");
  EXPECT_EQ(tagged.text, "link, Preise, visited");
  EXPECT_THAT(tagged.runs, testing::ElementsAre(SpokenRun{"link, ", ""}, SpokenRun{"Preise", "de"},
                                                SpokenRun{", visited", ""}));
}

TEST(SpeechTags, TheMannerIsTakenOffTheStart) {
  const TaggedText tagged =
      ReadSpeechTags("\\Pit=90\\\\Rng=0\\\\Vol=70\\\\Pun=3\\\\Cap=2\\\\Dig=1\\\\Snd=2\\Done");
  EXPECT_EQ(tagged.text, "Done");
  EXPECT_EQ(tagged.manner, (SpeechManner{0, 70, 3, 2, true}));
  EXPECT_EQ(tagged.sound, 2);
  EXPECT_EQ(ReadSpeechTags("\\Vol=\\x").manner, SpeechManner());
}

TEST(SpeechTags, WhoSpeaksIsFoundAnywhere) {
  const TaggedText tagged =
      ReadSpeechTags("\\Vce=+f4\\Sign in. \\Vce=\\It says\\Lng=de\\\\Vce=de+f2\\Hallo");
  EXPECT_EQ(tagged.text, "Sign in. It saysHallo");
  EXPECT_THAT(tagged.runs,
              testing::ElementsAre(SpokenRun{"Sign in. ", "", "+f4"}, SpokenRun{"It says"},
                                   SpokenRun{"Hallo", "de", "de+f2"}));
  EXPECT_EQ(ReadSpeechTags("\\Vce=../x\\y").text, "\\Vce=../x\\y");
}

TEST(SpeechTags, WhatOnlyLooksLikeALanguageIsText) {
  for (const char* text : {"\\Lng=de", "\\Lng=d e\\x", "\\lng=de\\x", "a\\Lng=DE\\x"}) {
    const TaggedText tagged = ReadSpeechTags(text);
    EXPECT_EQ(tagged.text, text);
    EXPECT_THAT(tagged.runs, testing::ElementsAre(SpokenRun{text, ""}));
  }
}

}  // namespace
}  // namespace corvane::desktop
