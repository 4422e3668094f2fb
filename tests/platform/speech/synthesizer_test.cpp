#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/error.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/silent_synthesizer.h"
#include "platform/linux/speech/time_stretch.h"

namespace corvane::desktop {
namespace {

using Sound = std::vector<std::int16_t>;

constexpr int kPitches[] = {50, 70, 90, 110, 130};
constexpr int kSpeeds[] = {50, 100, 150, 200, 250};
const std::string kSentence = "All our many mornings are long and mellow.";

Sound Speak(Synthesizer& synthesizer, const std::string& text, int pitch = kPitchDefault,
            int speed = kSpeedDefault, const std::string& voice = "en-gb") {
  Sound sound;
  synthesizer.Synthesize(text, {voice, pitch, speed}, [&](std::span<const std::int16_t> samples) {
    sound.insert(sound.end(), samples.begin(), samples.end());
    return true;
  });
  return sound;
}

double Loudness(std::span<const std::int16_t> sound) {
  double sum = 0;
  for (const double sample : sound) sum += sample * sample;
  return sound.empty() ? 0 : std::sqrt(sum / static_cast<double>(sound.size()));
}

/// The fundamental frequency in Hz of one frame by its autocorrelation; 0 where
/// the frame is not voiced.
double FrameFrequency(std::span<const std::int16_t> frame) {
  constexpr std::size_t kShortest = kSampleRate / 400;
  constexpr std::size_t kLongest = kSampleRate / 50;
  if (Loudness(frame) < 500) return 0;
  const std::size_t length = frame.size() - kLongest;
  const auto likeness = [&](std::size_t lag) {
    double product = 0;
    double here = 1;
    double there = 1;
    for (std::size_t i = 0; i < length; ++i) {
      const double a = frame[i];
      const double b = frame[i + lag];
      product += a * b;
      here += a * a;
      there += b * b;
    }
    return product / std::sqrt(here * there);
  };
  std::vector<double> curve(kLongest);
  for (std::size_t lag = kShortest; lag < kLongest; ++lag) curve[lag] = likeness(lag);
  const double best = *std::max_element(curve.begin(), curve.end());
  if (best < 0.7) return 0;
  // The first peak nearly as good as the best: not a multiple of the period.
  for (std::size_t lag = kShortest + 1; lag + 1 < kLongest; ++lag) {
    if (curve[lag] > 0.9 * best && curve[lag] >= curve[lag - 1] && curve[lag] >= curve[lag + 1]) {
      return static_cast<double>(kSampleRate) / static_cast<double>(lag);
    }
  }
  return 0;
}

double MedianFrequency(const Sound& sound) {
  constexpr std::size_t kFrame = kSampleRate * 60 / 1000;
  std::vector<double> found;
  for (std::size_t at = 0; at + kFrame <= sound.size(); at += kFrame / 2) {
    const double frequency = FrameFrequency(std::span(sound).subspan(at, kFrame));
    if (frequency > 0) found.push_back(frequency);
  }
  if (found.size() < 5) return 0;
  std::nth_element(found.begin(), found.begin() + found.size() / 2, found.end());
  return found[found.size() / 2];
}

/// One for all tests: the library is started once.
class EspeakTest : public testing::Test {
 protected:
  EspeakSynthesizer espeak_;
};

TEST_F(EspeakTest, EverySpeedOfTheMenuIsClearlyFasterThanTheOneBefore) {
  for (const std::string& text : {kSentence, std::string("a"), std::string("Address")}) {
    double slower = 0;
    for (const int speed : kSpeeds) {
      const Sound sound = Speak(espeak_, text, kPitchDefault, speed);
      const double seconds = static_cast<double>(sound.size()) / kSampleRate;
      EXPECT_GT(Loudness(sound), 500) << text << " at " << speed;
      if (slower > 0) {
        EXPECT_GT(slower, 1.12 * seconds) << text << " at " << speed;
      }
      slower = seconds;
      std::printf("speed %3d: %.3f s \"%s\"\n", speed, seconds, text.c_str());
    }
  }
}

TEST_F(EspeakTest, EveryPitchOfTheMenuIsClearlyHigherThanTheOneBefore) {
  for (const int speed : {50, 150}) {
    double lower = 0;
    for (const int pitch : kPitches) {
      const double frequency = MedianFrequency(Speak(espeak_, kSentence, pitch, speed));
      ASSERT_GT(frequency, 50);
      if (lower > 0) {
        EXPECT_GT(frequency, 1.08 * lower) << pitch;
      }
      lower = frequency;
      std::printf("pitch %3d at speed %d: %.1f Hz\n", pitch, speed, frequency);
    }
  }
}

TEST_F(EspeakTest, PitchAndSpeedBeyondTheirLimitsAreHeldToThem) {
  // The library's periods do not always end on the same sample.
  const auto length = [&](int pitch, int speed) {
    return static_cast<double>(Speak(espeak_, "word", pitch, speed).size());
  };
  const double fastest = length(kPitchHighest, kSpeedHighest);
  const double slowest = length(kPitchLowest, kSpeedLowest);
  EXPECT_GT(slowest, 5 * fastest);
  EXPECT_NEAR(length(9999, 99999), fastest, 0.1 * fastest);
  EXPECT_NEAR(length(-5, -5), slowest, 0.1 * slowest);
}

TEST_F(EspeakTest, ARefusalEndsTheSynthesisOfAMegabyte) {
  std::string text;
  while (text.size() < 1'000'000) text += "A sentence of a very long page. ";
  for (const int speed : {50, 150}) {
    int calls = 0;
    espeak_.Synthesize(text, {"", kPitchDefault, speed},
                       [&](std::span<const std::int16_t>) { return ++calls < 3; });
    EXPECT_EQ(calls, 3);
  }
}

TEST_F(EspeakTest, AllPiecesOfALongTextAreSpoken) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "This sentence is one of forty. ";
  const std::size_t one = Speak(espeak_, "This sentence is one of forty.").size();
  const std::size_t all = Speak(espeak_, text).size();
  EXPECT_GT(all, 38 * one);
  EXPECT_LT(all, 60 * one);
}

TEST_F(EspeakTest, MarkupAndCommandsAreOnlyText) {
  const std::size_t short_text = 15 * kSampleRate;
  EXPECT_LT(Speak(espeak_, "<speak><break time=\"60s\"/>x</speak>").size(), short_text);
  EXPECT_LT(Speak(espeak_, "[[_::::::::::::::::::::::::::::::::::::::::::::]]").size(), short_text);
  // As a command it would set the speed and leave only the word to be said.
  EXPECT_GT(Speak(espeak_,
                  "\x01"
                  "900Sword")
                .size(),
            2 * Speak(espeak_, "word").size());
}

TEST_F(EspeakTest, AnythingAtAllIsSurvived) {
  std::string rubbish;
  std::uint32_t state = 7;
  while (rubbish.size() < 5000) {
    state = state * 1664525 + 1013904223;
    rubbish += static_cast<char>(state >> 24);
  }
  Speak(espeak_, rubbish, kPitchDefault, kSpeedHighest);
  Speak(espeak_, std::string(5000, '\xFF'), kPitchDefault, kSpeedHighest);
  Speak(espeak_, std::string(5000, 'x'), kPitchDefault, kSpeedHighest);
  Speak(espeak_, std::string(5000, '('), kPitchDefault, kSpeedHighest);
  EXPECT_TRUE(Speak(espeak_, "").empty());
  EXPECT_GT(Loudness(Speak(espeak_, "still here")), 500);
}

TEST_F(EspeakTest, AnUnknownVoiceSpeaksWithTheDefaultOne) {
  EXPECT_GT(Loudness(Speak(espeak_, "word", kPitchDefault, kSpeedDefault, "no-such-voice")), 500);
}

Sound SoundIn(EspeakSynthesizer& espeak, const std::string& language,
              const std::string& voice = "") {
  Sound sound;
  espeak.Synthesize("1 2 3 4 5 6 7", {.voice = voice, .language = language}, [&](auto samples) {
    sound.insert(sound.end(), samples.begin(), samples.end());
    return true;
  });
  return sound;
}

/// Whether some numbers are said in the same language: how long they take tells, while
/// the sound itself is never twice the same.
bool AreAlike(const Sound& a, const Sound& b) {
  const auto [less, more] = std::minmax(a.size(), b.size());
  return more - less < kSampleRate / 30;
}

TEST_F(EspeakTest, AnotherLanguageHasAnotherMouth) {
  const Sound german = SoundIn(espeak_, "de");
  const Sound own = SoundIn(espeak_, "");
  EXPECT_FALSE(AreAlike(own, german));
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "de"), german));
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, ""), own)) << "the own one is back";
}

TEST_F(EspeakTest, ALanguageIsFoundByWhateverPagesCallIt) {
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "de-at"), SoundIn(espeak_, "de")));
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "zh-cn"), SoundIn(espeak_, "cmn")));
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "no"), SoundIn(espeak_, "nb")));
  EXPECT_FALSE(AreAlike(SoundIn(espeak_, "zh"), SoundIn(espeak_, "")));
}

TEST_F(EspeakTest, WithoutAVoiceForItTheOwnOneSpeaks) {
  const Sound own = SoundIn(espeak_, "");
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "tlh"), own));
  SoundIn(espeak_, "de");
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "xx"), own)) << "not the one before";
}

TEST_F(EspeakTest, TheOwnLanguagesVoiceStaysTheChosenOne) {
  EXPECT_TRUE(AreAlike(SoundIn(espeak_, "en-us", "en-gb"), SoundIn(espeak_, "", "en-gb")));
}

TEST_F(EspeakTest, AnotherMouthKeepsTheThroat) {
  EXPECT_GT(MedianFrequency(SoundIn(espeak_, "de", "en+f2")),
            1.2 * MedianFrequency(SoundIn(espeak_, "de")));
}

TEST_F(EspeakTest, OnlyOneMayLiveAtATime) {
  EXPECT_THROW(EspeakSynthesizer second, RunTimeError);
  EXPECT_GT(Loudness(Speak(espeak_, "word")), 500);
}

TEST_F(EspeakTest, LoneMarksBlanksAndEditingKeysAreNamed) {
  for (const char* text : {",", ".", "-", "(", "...", " ", "\n", "\t", "\b", "\u00BC"}) {
    EXPECT_GT(Loudness(Speak(espeak_, text)), 500) << '"' << text << '"';
  }
}

TEST_F(EspeakTest, MarksInASentenceAreNotNamed) {
  const Sound plain = Speak(espeak_, "one two three four five");
  Speak(espeak_, ",");
  const Sound marked = Speak(espeak_, "one, two, three, four, five");
  EXPECT_LT(marked.size(), 2 * plain.size());
}

// Samples at the end of the sound that are as good as none.
std::ptrdiff_t SilenceBehind(const Sound& sound) {
  const auto loud = [](std::int16_t sample) { return std::abs(sample) > 40; };
  return std::find_if(sound.rbegin(), sound.rend(), loud) - sound.rbegin();
}

TEST_F(EspeakTest, ASentenceEndsWithAPauseAndAWordAtOnce) {
  constexpr std::ptrdiff_t kPause = kSampleRate / 4;
  EXPECT_GT(SilenceBehind(Speak(espeak_, "The first goes on.")), kPause);
  EXPECT_GT(SilenceBehind(Speak(espeak_, "\"Who knows?\"")), kPause);
  EXPECT_LT(SilenceBehind(Speak(espeak_, "Links List")), kPause / 4);
  EXPECT_LT(SilenceBehind(Speak(espeak_, ".")), kPause / 2) << "a mark that is named";
}

TEST(Espeak, CanBeStartedAgain) {
  for (int i = 0; i < 3; ++i) {
    EspeakSynthesizer espeak;
    EXPECT_GT(Loudness(Speak(espeak, "word")), 500);
  }
}

TEST(SilentSynthesizer, IsSilentForAsLongAsTheTextTakes) {
  SilentSynthesizer silent;
  const std::string words = "sixty sixty sixty sixty sixty ";  // five words of the usual length
  for (const int speed : kSpeeds) {
    const Sound sound = Speak(silent, words, kPitchDefault, speed);
    EXPECT_EQ(Loudness(sound), 0);
    EXPECT_NEAR(static_cast<double>(sound.size()) / kSampleRate, 5 * 60.0 / speed, 0.5);
  }
}

TEST(TimeStretch, MakesATonePitchTrueAndLonger) {
  constexpr double kTone = 200;
  Sound tone(kSampleRate);
  for (std::size_t i = 0; i < tone.size(); ++i) {
    tone[i] = static_cast<std::int16_t>(
        10000 * std::sin(2 * std::numbers::pi * kTone * static_cast<double>(i) / kSampleRate));
  }
  Sound stretched;
  const Synthesizer::Sink keep = [&](std::span<const std::int16_t> samples) {
    stretched.insert(stretched.end(), samples.begin(), samples.end());
    return true;
  };
  TimeStretch stretch(1.6);
  for (std::size_t at = 0; at < tone.size(); at += 1000) {
    stretch.Push(std::span(tone).subspan(at, std::min<std::size_t>(1000, tone.size() - at)), keep);
  }
  stretch.Finish(keep);
  EXPECT_NEAR(static_cast<double>(stretched.size()), 1.6 * kSampleRate, kSampleRate * 0.03);
  EXPECT_NEAR(MedianFrequency(stretched), kTone, 4);
  // No holes and no bumps where windows meet.
  for (std::size_t at = 500; at + 500 < stretched.size() - 1000; at += 500) {
    EXPECT_NEAR(Loudness(std::span(stretched).subspan(at, 500)), 7071, 900) << at;
  }
}

}  // namespace
}  // namespace corvane::desktop
