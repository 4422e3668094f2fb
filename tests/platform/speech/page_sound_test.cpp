#include <gmock/gmock.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <condition_variable>

#include "platform/linux/speech/pulse_page_sound.h"
#include "platform/linux/speech/sound_format.h"
#include "tests/platform/speech/private_sound_server.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

constexpr int kLoud = 8000;
// Most pages' sound has it, too; other rates are made into it by the server.
constexpr int kSinkRate = 44100;
constexpr std::size_t kSettled = kSampleRate / 20;  // samples in a row

/// What the sink plays: how many samples in a row lie around a value, and the largest step
/// from one to the next.
class Level {
 public:
  void Add(const std::vector<std::int16_t>& samples) {
    const std::lock_guard lock(mutex_);
    for (const int sample : samples) {
      if (sample != 0 && last_ != 0)
        largest_step_ = std::max(largest_step_, std::abs(sample - last_));
      last_ = sample;
      near_ = std::abs(sample - wanted_) <= kLoud / 50 ? near_ + 1 : 0;
    }
    changed_.notify_all();
  }
  bool WaitFor(int value, std::size_t in_a_row = kSettled) {
    std::unique_lock lock(mutex_);
    wanted_ = value;
    near_ = 0;
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return near_ >= in_a_row; });
  }
  void ForgetSteps() {
    const std::lock_guard lock(mutex_);
    largest_step_ = 0;
  }
  int LargestStep() {
    const std::lock_guard lock(mutex_);
    return largest_step_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int wanted_ = 0;
  int last_ = 0;
  int largest_step_ = 0;
  std::size_t near_ = 0;
};

/// Another process that plays an even sound.
class Player {
 public:
  /// `about`: what the server is to know of it, as the variable PULSE_PROP has it.
  Player(const PrivateSoundServer& server, const test::TemporaryFolder& folder,
         const std::string& about) {
    const std::string sound = folder / "sound";
    std::vector<std::int16_t> samples(std::size_t{60} * kSinkRate, kLoud);
    std::ofstream(sound, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()),
               static_cast<std::streamsize>(samples.size() * sizeof samples[0]));
    std::vector<std::string> words = {"pacat",
                                      "--raw",
                                      "--format=s16le",
                                      "--channels=1",
                                      "--rate=" + std::to_string(kSinkRate),
                                      "--latency-msec=500",
                                      sound};
    std::vector<std::string> settings = {"PATH=/usr/bin:/bin",
                                         "LC_ALL=C",
                                         "HOME=" + folder.Path(),
                                         "XDG_RUNTIME_DIR=" + folder.Path(),
                                         "PULSE_SERVER=" + server.Address(),
                                         "PULSE_PROP=" + about};
    const auto pointers = [](std::vector<std::string>& all) {
      std::vector<char*> list;
      for (std::string& one : all) list.push_back(one.data());
      list.push_back(nullptr);
      return list;
    };
    posix_spawnp(&process_, "pacat", nullptr, nullptr, pointers(words).data(),
                 pointers(settings).data());
  }
  ~Player() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

 private:
  pid_t process_ = 0;
};

class PageSoundTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!server_.Start()) GTEST_SKIP() << "PulseAudio does not run here: " << server_.Log();
    listener_ = std::make_unique<SinkListener>(
        server_.Address(),
        [this](const std::vector<std::int16_t>& samples) { heard_.Add(samples); });
    ASSERT_TRUE(listener_->WaitReady());
  }
  /// A process as the engine starts it for pages of the program with a process number.
  std::unique_ptr<Player> Page(pid_t program) {
    return std::make_unique<Player>(server_, folder_,
                                    "corvane.pages-of=" + std::to_string(program) +
                                        " application.process.binary=WebKitWebProcess");
  }

  test::TemporaryFolder folder_;
  PrivateSoundServer server_;
  Level heard_;
  std::unique_ptr<SinkListener> listener_;
};

TEST_F(PageSoundTest, APageSinksAndRisesWithoutCrackling) {
  const auto page = Page(getpid());
  ASSERT_TRUE(heard_.WaitFor(kLoud));
  PulsePageSound sound(server_.Address());
  heard_.ForgetSteps();
  sound.PageSounds();
  for (int i = 0; i < 2; ++i) {
    sound.SetLevel(20);
    ASSERT_TRUE(heard_.WaitFor(kLoud / 5));
    sound.SetLevel(100);
    ASSERT_TRUE(heard_.WaitFor(kLoud));
  }
  EXPECT_LT(heard_.LargestStep(), kLoud / 10);
}

TEST_F(PageSoundTest, APageThatBeginsWhileSomethingIsSaidIsLow) {
  PulsePageSound sound(server_.Address());
  sound.SetLevel(20);
  sound.PageSounds();
  const auto page = Page(getpid());
  ASSERT_TRUE(heard_.WaitFor(kLoud / 5));
}

TEST_F(PageSoundTest, WhatIsNoPageOfTheProgramIsLeftAlone) {
  const auto page = Page(getpid() + 1);
  ASSERT_TRUE(heard_.WaitFor(kLoud));
  PulsePageSound sound(server_.Address());
  sound.PageSounds();
  sound.SetLevel(20);
  EXPECT_TRUE(heard_.WaitFor(kLoud, 2 * kSampleRate));
}

TEST_F(PageSoundTest, AServerThatComesBackIsFoundWithTheNextPage) {
  PulsePageSound sound(server_.Address());
  sound.PageSounds();
  listener_.reset();
  server_.Kill();
  sound.SetLevel(20);
  ASSERT_TRUE(server_.Start());
  listener_ = std::make_unique<SinkListener>(
      server_.Address(), [this](const std::vector<std::int16_t>& samples) { heard_.Add(samples); });
  ASSERT_TRUE(listener_->WaitReady());
  const auto page = Page(getpid());
  ASSERT_TRUE(heard_.WaitFor(kLoud));
  sound.PageSounds();
  EXPECT_TRUE(heard_.WaitFor(kLoud / 5));
}

TEST(PageSoundWithoutServer, NothingWaitsForIt) {
  test::TemporaryFolder folder;
  PulsePageSound sound("unix:" + folder / "nowhere");
  for (int i = 0; i < 100; ++i) {
    sound.PageSounds();
    sound.SetLevel(i);
  }
}

TEST(PageSoundWithoutServer, PagesAreHeldBackWhenTheyAreToBe) {
  PulsePageSound sound;
  EXPECT_FALSE(sound.HoldsBack());
  bool held = true;
  sound.HoldBackWhile([&held] { return held; });
  EXPECT_TRUE(sound.HoldsBack());
  held = false;
  EXPECT_FALSE(sound.HoldsBack());
}

}  // namespace
}  // namespace corvane::desktop
