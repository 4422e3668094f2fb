#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <condition_variable>

#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/pulse_output.h"
#include "platform/linux/speech/speech_output.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/platform/speech/private_sound_server.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using Sound = std::vector<std::int16_t>;

/// Counts loud samples that the sink plays, by their value's neighbourhood.
class Heard {
 public:
  void Add(const Sound& samples) {
    const std::lock_guard lock(mutex_);
    for (const int sample : samples) {
      if (std::abs(sample) > 500) ++loud_;
      silent_run_ = std::abs(sample) > 500 ? 0 : silent_run_ + 1;
    }
    changed_.notify_all();
  }
  bool WaitForLoud(std::size_t count) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return loud_ >= count; });
  }
  /// Waits for so many silent samples in a row.
  bool WaitForSilence(std::size_t count) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return silent_run_ >= count; });
  }
  std::size_t Loud() {
    const std::lock_guard lock(mutex_);
    return loud_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t loud_ = 0;
  std::size_t silent_run_ = 0;
};

class Notices {
 public:
  Notice Hook() {
    return [this](const std::string& text) {
      const std::lock_guard lock(mutex_);
      all_.push_back(text);
    };
  }
  std::vector<std::string> All() {
    const std::lock_guard lock(mutex_);
    return all_;
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> all_;
};

bool WriteAll(AudioOutput& output, std::span<const std::int16_t> samples) {
  while (!samples.empty()) {
    const std::size_t taken = output.Write(samples);
    if (taken == 0) return false;
    samples = samples.subspan(taken);
  }
  return true;
}

constexpr std::size_t kHalfASecond = kSampleRate / 2;

class PulseTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!server_.Start()) GTEST_SKIP() << "PulseAudio does not run here: " << server_.Log();
  }

  PrivateSoundServer server_;
  Notices notices_;
};

TEST_F(PulseTest, SoundReachesTheSink) {
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady()) << server_.Log();
  PulseOutput output(server_.Address(), notices_.Hook());
  ASSERT_TRUE(output.WaitConnected());
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(kHalfASecond, 8000)));
  EXPECT_TRUE(output.Drain());
  EXPECT_TRUE(heard.WaitForLoud(kHalfASecond * 9 / 10));
  EXPECT_THAT(notices_.All(), testing::IsEmpty());
}

TEST_F(PulseTest, TheFirstStreamWaitsForTheConnection) {
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady());
  PulseOutput output(server_.Address(), notices_.Hook());
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(kHalfASecond, 8000)));
  EXPECT_TRUE(output.Drain());
  EXPECT_TRUE(heard.WaitForLoud(kHalfASecond * 9 / 10));
}

TEST_F(PulseTest, StreamsFollowEachOtherWithoutLoss) {
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady());
  PulseOutput output(server_.Address(), notices_.Hook());
  ASSERT_TRUE(output.WaitConnected());
  constexpr std::size_t kShort = kSampleRate / 20;
  // On a busy machine the listener misses some of the very first sound. A loss at
  // the end of every stream adds up to more than that.
  constexpr std::size_t kMissedAtFirst = kSampleRate / 50;
  for (std::size_t i = 0; i < 20; ++i) {
    output.Begin();
    ASSERT_TRUE(WriteAll(output, Sound(kShort, 8000)));
    ASSERT_TRUE(output.Drain());
    EXPECT_TRUE(heard.WaitForLoud((i + 1) * kShort * 9 / 10 - kMissedAtFirst)) << i;
  }
}

TEST_F(PulseTest, StopSilencesTheDeviceAndWakesTheWriter) {
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady());
  PulseOutput output(server_.Address(), notices_.Hook());
  ASSERT_TRUE(output.WaitConnected());
  output.Begin();
  bool whole = true;
  const Sound minute(60 * kSampleRate, 8000);
  std::thread writer([&] { whole = WriteAll(output, minute); });
  ASSERT_TRUE(heard.WaitForLoud(1000));
  output.Stop();
  writer.join();
  EXPECT_FALSE(whole);
  EXPECT_EQ(output.Write(minute), 0U);
  EXPECT_FALSE(output.Drain());
  EXPECT_TRUE(heard.WaitForSilence(kHalfASecond)) << "the sink went on";

  const std::size_t before = heard.Loud();
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(kHalfASecond, 8000)));
  ASSERT_TRUE(output.Drain());
  EXPECT_TRUE(heard.WaitForLoud(before + kHalfASecond * 9 / 10)) << "deaf after a stop";
}

TEST_F(PulseTest, StopAndBeginInQuickSuccession) {
  PulseOutput output(server_.Address(), notices_.Hook());
  ASSERT_TRUE(output.WaitConnected());
  const Sound sound(kSampleRate / 10, 8000);
  for (int i = 0; i < 500; ++i) {
    output.Begin();
    ASSERT_GT(output.Write(sound), 0U);
    output.Stop();
  }
  output.Begin();
  EXPECT_TRUE(WriteAll(output, sound));
  EXPECT_TRUE(output.Drain());
  EXPECT_THAT(notices_.All(), testing::IsEmpty());
}

TEST_F(PulseTest, WhenTheServerDiesTheRestRunsOnTheClockAndIsToldOnce) {
  Heard heard;
  auto listener = std::make_unique<SinkListener>(server_.Address(),
                                                 [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener->WaitReady());
  PulseOutput output(server_.Address(), notices_.Hook());
  ASSERT_TRUE(output.WaitConnected());
  output.Begin();
  bool whole = false;
  bool drained = false;
  const Sound second(kSampleRate, 8000);
  std::thread writer([&] {
    whole = WriteAll(output, second);
    drained = output.Drain();
  });
  ASSERT_TRUE(heard.WaitForLoud(1000));
  server_.Kill();
  writer.join();
  EXPECT_TRUE(whole);
  EXPECT_TRUE(drained);
  EXPECT_EQ(notices_.All().size(), 1U);
  output.Begin();
  EXPECT_TRUE(WriteAll(output, Sound(1000, 1)));
  EXPECT_TRUE(output.Drain());
  EXPECT_EQ(notices_.All().size(), 1U) << "told twice";
}

TEST_F(PulseTest, AServerThatComesBackIsHeardAgain) {
  PulseOutput output(server_.Address(), notices_.Hook(), std::chrono::milliseconds(0));
  ASSERT_TRUE(output.WaitConnected());
  server_.Kill();
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(kHalfASecond, 8000)));
  ASSERT_TRUE(output.Drain());
  ASSERT_TRUE(server_.Start()) << server_.Log();
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady());
  output.Begin();  // looks for the server, and runs on the clock itself
  EXPECT_TRUE(output.WaitConnected());
  output.Begin();
  ASSERT_TRUE(WriteAll(output, Sound(kHalfASecond, 8000)));
  ASSERT_TRUE(output.Drain());
  EXPECT_TRUE(heard.WaitForLoud(kHalfASecond * 9 / 10));
  EXPECT_EQ(notices_.All().size(), 1U);
}

TEST_F(PulseTest, SpeechThroughTheServerIsHeard) {
  Heard heard;
  SinkListener listener(server_.Address(), [&](const Sound& samples) { heard.Add(samples); });
  ASSERT_TRUE(listener.WaitReady());
  SpeechOutput speech([] { return std::make_unique<EspeakSynthesizer>(); },
                      [this](Notice notice) {
                        return std::make_unique<PulseOutput>(server_.Address(), std::move(notice));
                      });
  Utterance utterance;
  utterance.text = "Hello";
  bool spoken = false;
  speech.Speak(utterance, nullptr, [&](SpeechEnd end) { spoken = end == SpeechEnd::kSpoken; });
  ASSERT_TRUE(RunLoopUntil([&] { return spoken; }));
  EXPECT_TRUE(heard.WaitForLoud(2000));
}

TEST(PulseWithoutServer, RunsOnTheClockAndIsToldOnce) {
  test::TemporaryFolder folder;
  Notices notices;
  PulseOutput output("unix:" + folder / "nowhere", notices.Hook(), std::chrono::milliseconds(0));
  EXPECT_FALSE(output.WaitConnected());
  for (int i = 0; i < 3; ++i) {
    output.Begin();
    EXPECT_TRUE(WriteAll(output, Sound(1000, 1)));
    EXPECT_TRUE(output.Drain());
  }
  EXPECT_EQ(notices.All().size(), 1U);
}

TEST(PulseWithoutServer, SpeechTellsItFromTheLoop) {
  test::TemporaryFolder folder;
  SpeechOutput speech([] { return std::make_unique<EspeakSynthesizer>(); },
                      [&](Notice notice) {
                        return std::make_unique<PulseOutput>("unix:" + folder / "nowhere",
                                                             std::move(notice));
                      });
  std::vector<std::string> notices;
  const auto connection =
      speech.Notified.Connect([&](const std::string& text) { notices.push_back(text); });
  Utterance utterance;
  utterance.text = "a";
  bool spoken = false;
  speech.Speak(utterance, nullptr, [&](SpeechEnd end) { spoken = end == SpeechEnd::kSpoken; });
  ASSERT_TRUE(RunLoopUntil([&] { return spoken && !notices.empty(); }));
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_THAT(notices[0], testing::HasSubstr("sound server"));
}

}  // namespace
}  // namespace corvane::desktop
