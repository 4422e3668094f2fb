#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/installed_voices.h"
#include "platform/linux/speech/sign_sound.h"
#include "platform/linux/speech/speech_text.h"

namespace corvane::desktop {
namespace {

using Sound = std::vector<std::int16_t>;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;

const std::string kSentence =
    "All our many mornings are long and mellow, and every evening was a quiet one.";

/// How the manner of speaking is heard in the sound itself.
class MannerTest : public testing::Test {
 protected:
  Sound Heard(const std::string& text, const VoiceStyle& style) {
    Sound sound;
    espeak_.Synthesize(text, style, [&](std::span<const std::int16_t> samples) {
      sound.insert(sound.end(), samples.begin(), samples.end());
      return true;
    });
    return sound;
  }
  double Seconds(const std::string& text, const VoiceStyle& style) {
    return static_cast<double>(Heard(text, style).size()) / kSampleRate;
  }
  static VoiceStyle With(const SpeechManner& manner) {
    return {.voice = "en-gb", .manner = manner};
  }

  EspeakSynthesizer espeak_;
};

double Loudness(const Sound& sound) {
  double sum = 0;
  for (const double sample : sound) sum += sample * sample;
  return sound.empty() ? 0 : std::sqrt(sum / static_cast<double>(sound.size()));
}

TEST_F(MannerTest, EverySpeedUpToNineHundredIsFasterThanTheOneBefore) {
  double slower = 0;
  for (const int speed : {80, 150, 220, 300, 400, 449, 500, 600, 750, 900}) {
    const double seconds = Seconds(kSentence, {.voice = "en-gb", .speed = speed});
    std::printf("speed %3d: %.3f s\n", speed, seconds);
    if (slower > 0) {
      EXPECT_LT(seconds, slower) << speed;
    }
    slower = seconds;
  }
  const double normal = Seconds(kSentence, {.voice = "en-gb", .speed = 150});
  EXPECT_LT(5 * slower, normal) << "900 is six times 150";
}

TEST_F(MannerTest, OneSpeedLeavesNothingBehindForTheNext) {
  const double normal = Seconds(kSentence, {.voice = "en-gb", .speed = 150});
  Seconds(kSentence, {.voice = "en-gb", .speed = 900});
  EXPECT_NEAR(Seconds(kSentence, {.voice = "en-gb", .speed = 150}), normal, 0.05 * normal);
}

TEST_F(MannerTest, VolumeIsHeard) {
  const double full = Loudness(Heard(kSentence, With({})));
  const double half = Loudness(Heard(kSentence, With({.volume = 50})));
  EXPECT_GT(half, 500);
  EXPECT_GT(full, 1.5 * half);
  EXPECT_NEAR(Loudness(Heard(kSentence, With({}))), full, 0.1 * full);
}

// A mark that is named takes time, one that only makes a pause about as much as none.
TEST_F(MannerTest, EachStepOfPunctuationNamesMoreMarks) {
  const auto seconds = [this](const std::string& text, int punctuation) {
    return Seconds(text, With({.punctuation = punctuation}));
  };
  const std::string brackets = "one (two) three";
  EXPECT_NEAR(seconds(brackets, 1), seconds(brackets, 0), 0.1);
  EXPECT_GT(seconds(brackets, 2), seconds(brackets, 1) + 0.5);
  EXPECT_NEAR(seconds(brackets, 3), seconds(brackets, 2), 0.1);
  const std::string ticks = "Ann's and Bob's and Eve's";
  EXPECT_NEAR(seconds(ticks, 2), seconds(ticks, 0), 0.1);
  EXPECT_GT(seconds(ticks, 3), seconds(ticks, 2) + 0.5);
}

TEST_F(MannerTest, AMarkAloneIsNamedWhateverIsChosen) {
  for (const int punctuation : {0, 1, 2, 3}) {
    EXPECT_GT(Seconds(",", With({.punctuation = punctuation})), 0.2) << punctuation;
  }
  EXPECT_GT(Seconds(",,,", With({.punctuation = 1})), 0.2);
  EXPECT_LT(Seconds(",,,", With({.punctuation = 0})), 0.1);
}

TEST_F(MannerTest, ACapitalIsToldByAWord) {
  EXPECT_GT(Seconds("Ada", With({.capitals = 2})), Seconds("Ada", With({})) + 0.2);
  EXPECT_NEAR(Seconds("Ada", With({.capitals = 1})), Seconds("Ada", With({})), 0.1);
}

TEST_F(MannerTest, DigitsAreReadOneByOne) {
  const double one_by_one = Seconds("2 7 4 1", With({}));
  EXPECT_NEAR(Seconds("2741", With({.digits = true})), one_by_one, 0.1 * one_by_one);
  EXPECT_GT(Seconds("2741", With({})), 1.1 * one_by_one);
  EXPECT_EQ(WithLoneDigits("A1 22, 3.14 \u00E9"), "A1 2 2, 3.1 4 \u00E9");
}

TEST_F(MannerTest, AChosenVoiceSpeaksInPlaceOfTheUsualOne) {
  const auto numbers = [this](const std::string& language, const std::string& chosen) {
    return Seconds("1 2 3 4 5 6 7", {.voice = "en-gb", .language = language, .chosen = chosen});
  };
  const double german = numbers("de", "");
  EXPECT_NEAR(numbers("", "de"), german, 0.03);
  EXPECT_NEAR(numbers("yi", "de"), german, 0.03) << "the nearest one";
  EXPECT_GT(std::abs(numbers("", "") - german), 0.05);
  EXPECT_NEAR(numbers("", "no-such-voice"), numbers("", ""), 0.03) << "the own one speaks";
}

TEST_F(MannerTest, EveryVoiceAndVariantThatIsOfferedIsThere) {
  const InstalledVoices installed = ReadInstalledVoices(EspeakDataFolder());
  ASSERT_GT(installed.voices.size(), 100U);
  EXPECT_THAT(installed.variants, Contains("f4"));
  EXPECT_THAT(installed.voices, Contains(Field(&InstalledVoice::label, "German")));
  EXPECT_THAT(installed.voices, Contains(Field(&InstalledVoice::language, "zh")));
  EXPECT_THAT(ReadInstalledVoices("/nowhere").voices, ElementsAre());
}

TEST(SignSounds, AreShortAndDifferAndEndWithoutAClick) {
  std::vector<Sound> sounds;
  for (const int sign : {1, 2}) {
    Sound sound;
    PlaySound(sign, 100, [&](auto samples) {
      sound.assign(samples.begin(), samples.end());
      return true;
    });
    EXPECT_GT(Loudness(sound), 1000);
    EXPECT_LT(sound.size(), kSampleRate / 4);
    EXPECT_LT(std::abs(sound.front()), 100);
    EXPECT_LT(std::abs(sound.back()), 100);
    sounds.push_back(sound);
  }
  EXPECT_NE(sounds[0], sounds[1]);
}

}  // namespace
}  // namespace corvane::desktop
