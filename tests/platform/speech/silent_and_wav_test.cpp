#include <gmock/gmock.h>

#include <atomic>
#include <cmath>
#include <cstring>
#include <thread>

#include "base/error.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/silent_output.h"
#include "platform/linux/speech/speech_output.h"
#include "platform/linux/speech/wav_output.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using Sound = std::vector<std::int16_t>;

/// Time that passes only by being waited for.
class JumpingClock : public PaceClock {
 public:
  explicit JumpingClock(std::atomic<double>& now) : now_(now) {}
  double Now() override { return now_; }
  void WaitUntil(double time, std::unique_lock<std::mutex>&, std::condition_variable&,
                 const std::function<bool()>& woken) override {
    if (!woken() && time > now_) now_ = time;
  }

 private:
  std::atomic<double>& now_;
};

/// A clock that stands still: who waits, waits until it is woken.
class StandingClock : public PaceClock {
 public:
  explicit StandingClock(std::atomic<bool>& waiting) : waiting_(waiting) {}
  double Now() override { return 0; }
  void WaitUntil(double, std::unique_lock<std::mutex>& lock, std::condition_variable& wake,
                 const std::function<bool()>& woken) override {
    waiting_ = true;
    waiting_.notify_all();
    wake.wait(lock, woken);
  }

 private:
  std::atomic<bool>& waiting_;
};

bool WriteAll(AudioOutput& output, std::span<const std::int16_t> samples) {
  while (!samples.empty()) {
    const std::size_t taken = output.Write(samples);
    if (taken == 0) return false;
    samples = samples.subspan(taken);
  }
  return true;
}

TEST(SilentOutput, TakesAsLongAsTheSound) {
  std::atomic<double> now = 100;
  SilentOutput output(std::make_unique<JumpingClock>(now));
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(2 * kSampleRate)));
  EXPECT_NEAR(now, 102, 0.05);
  EXPECT_LT(now, 102) << "held nothing";
  ASSERT_TRUE(output.Drain());
  EXPECT_NEAR(now, 102, 1e-6);
}

TEST(SilentOutput, ASecondStreamAddsItsOwnTime) {
  std::atomic<double> now = 0;
  SilentOutput output(std::make_unique<JumpingClock>(now));
  for (int i = 0; i < 3; ++i) {
    output.Begin();
    ASSERT_TRUE(WriteAll(output, Sound(kSampleRate)));
    ASSERT_TRUE(output.Drain());
  }
  EXPECT_NEAR(now, 3, 1e-6);
}

TEST(SilentOutput, StopEndsAWaitingWriteAndNothingIsTakenUntilBegin) {
  std::atomic<bool> waiting = false;
  SilentOutput output(std::make_unique<StandingClock>(waiting));
  output.Begin();
  bool whole = true;
  std::thread writer([&] { whole = WriteAll(output, Sound(kSampleRate)); });
  waiting.wait(false);
  output.Stop();
  writer.join();
  EXPECT_FALSE(whole);
  EXPECT_EQ(output.Write(Sound(10)), 0U);
  EXPECT_FALSE(output.Drain());
  output.Begin();
  EXPECT_EQ(output.Write(Sound(10)), 10U);
}

TEST(SilentOutput, StopEndsAWaitingDrain) {
  std::atomic<bool> waiting = false;
  SilentOutput output(std::make_unique<StandingClock>(waiting));
  output.Begin();
  ASSERT_EQ(output.Write(Sound(100)), 100U);
  bool drained = true;
  std::thread writer([&] { drained = output.Drain(); });
  waiting.wait(false);
  output.Stop();
  writer.join();
  EXPECT_FALSE(drained);
}

TEST(SilentOutput, TheRealClockRunsForwardAndWaits) {
  const auto clock = MakeRealClock();
  std::mutex mutex;
  std::condition_variable wake;
  std::unique_lock lock(mutex);
  const double start = clock->Now();
  clock->WaitUntil(start + 0.01, lock, wake, [] { return false; });
  EXPECT_GE(clock->Now(), start + 0.01);
}

struct Wav {
  std::string header;
  Sound sound;
};

Wav ReadWav(const std::string& file) {
  const std::string bytes = test::ContentOf(file);
  Wav wav{bytes.substr(0, 44), {}};
  for (std::size_t at = 44; at + 1 < bytes.size(); at += 2) {
    wav.sound.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                                  static_cast<unsigned char>(bytes[at + 1]) << 8));
  }
  return wav;
}

std::uint32_t Number(const std::string& header, std::size_t at, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(header[at + i]);
  }
  return value;
}

class WavOutputTest : public testing::Test {
 protected:
  std::unique_ptr<WavOutput> Make() {
    return std::make_unique<WavOutput>(
        file_, [](const std::string& text) { ADD_FAILURE() << text; },
        std::make_unique<JumpingClock>(now_));
  }

  std::atomic<double> now_ = 0;
  test::TemporaryFolder folder_;
  std::string file_ = folder_ / "speech.wav";
};

TEST_F(WavOutputTest, TheFileIsWholeAfterEveryWrite) {
  const auto output = Make();
  EXPECT_EQ(Number(ReadWav(file_).header, 40, 4), 0U);
  output->Begin();
  const Sound sound{1, -2, 300, -32768, 32767};
  ASSERT_EQ(output->Write(sound), sound.size());
  const Wav wav = ReadWav(file_);
  EXPECT_EQ(wav.sound, sound);
  EXPECT_EQ(wav.header.substr(0, 4), "RIFF");
  EXPECT_EQ(wav.header.substr(8, 8), "WAVEfmt ");
  EXPECT_EQ(wav.header.substr(36, 4), "data");
  EXPECT_EQ(Number(wav.header, 4, 4), 36 + 2 * sound.size());
  EXPECT_EQ(Number(wav.header, 40, 4), 2 * sound.size());
  EXPECT_EQ(Number(wav.header, 20, 2), 1U);
  EXPECT_EQ(Number(wav.header, 22, 2), 1U);
  EXPECT_EQ(Number(wav.header, 24, 4), static_cast<unsigned>(kSampleRate));
  EXPECT_EQ(Number(wav.header, 34, 2), 16U);
}

TEST_F(WavOutputTest, WhatIsStoppedIsMissing) {
  const auto output = Make();
  output->Begin();
  ASSERT_TRUE(WriteAll(*output, Sound(1000, 7)));
  output->Stop();
  EXPECT_FALSE(WriteAll(*output, Sound(1000, 8)));
  output->Begin();
  ASSERT_TRUE(WriteAll(*output, Sound(500, 9)));
  Sound expected(1000, 7);
  expected.insert(expected.end(), 500, 9);
  EXPECT_EQ(ReadWav(file_).sound, expected);
}

TEST_F(WavOutputTest, AFileThatCannotBeWrittenIsAnError) {
  EXPECT_THROW(WavOutput(folder_ / "missing/speech.wav", nullptr), RunTimeError);
}

TEST_F(WavOutputTest, AFullDiskIsToldOnceAndSpeechGoesOn) {
  std::vector<std::string> notices;
  const auto notice = [&](const std::string& text) { notices.push_back(text); };
  // The system's own device that is always full.
  try {
    WavOutput output("/dev/full", notice, std::make_unique<JumpingClock>(now_));
    output.Begin();
    EXPECT_TRUE(WriteAll(output, Sound(kSampleRate)));
    EXPECT_TRUE(output.Drain());
    EXPECT_EQ(notices.size(), 1U);
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.Description(), testing::HasSubstr("cannot be written"));
  }
}

TEST_F(WavOutputTest, SpokenTextIsSoundInTheFile) {
  {
    SpeechOutput speech([] { return std::make_unique<EspeakSynthesizer>(); },
                        [this](const Notice&) { return Make(); });
    Utterance utterance;
    utterance.text = "Hello, welcome.";
    bool spoken = false;
    speech.Speak(utterance, nullptr, [&](SpeechEnd end) { spoken = end == SpeechEnd::kSpoken; });
    ASSERT_TRUE(RunLoopUntil([&] { return spoken; }));
  }
  const Wav wav = ReadWav(file_);
  ASSERT_GT(wav.sound.size(), static_cast<std::size_t>(kSampleRate) / 2);
  double sum = 0;
  for (const double sample : wav.sound) sum += sample * sample;
  EXPECT_GT(std::sqrt(sum / static_cast<double>(wav.sound.size())), 500);
  EXPECT_NEAR(now_, static_cast<double>(wav.sound.size()) / kSampleRate, 1e-3);
}

TEST_F(WavOutputTest, ChosenByName) {
  const auto output = MakeAudioOutput("wav:" + file_, nullptr);
  EXPECT_NE(dynamic_cast<WavOutput*>(output.get()), nullptr);
  EXPECT_EQ(ReadWav(file_).header.size(), 44U);
  EXPECT_NE(dynamic_cast<SilentOutput*>(MakeAudioOutput("null", nullptr).get()), nullptr);
}

}  // namespace
}  // namespace corvane::desktop
