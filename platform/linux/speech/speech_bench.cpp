/// Measures speech: from Speak() to the first samples handed to the device, from
/// Stop() to silence, and the synthesizer's own first chunk as the reference.
/// Prints one JSON object a line, times in milliseconds. The sound server is one
/// of its own.

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/pulse_output.h"
#include "platform/linux/speech/recording_synthesizer.h"
#include "platform/linux/speech/silent_output.h"
#include "platform/linux/speech/speech_output.h"
#include "tests/platform/speech/loop_wait.h"
#include "tests/platform/speech/private_sound_server.h"

namespace corvane::desktop {
namespace {

constexpr int kRuns = 200;
constexpr int kHeardRuns = 40;
constexpr double kTwentyASecond = 50;  // milliseconds
const std::string kKey = "a";
const std::string kLong =
    "A long text that goes on being read while the next key is pressed, again and again.";

double Now() {
  return std::chrono::duration<double, std::milli>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

void Print(const char* what, const char* output, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  const auto at = [&](double part) {
    return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
  };
  std::printf(
      "{\"what\": \"%s\", \"output\": \"%s\", \"median_ms\": %.3f, \"p95_ms\": %.3f, "
      "\"most_ms\": %.3f, \"runs\": %zu}\n",
      what, output, at(0.5), at(0.95), times.back(), times.size());
  std::fflush(stdout);
}

/// Notes when the first samples of each stream were taken.
class TimedOutput : public AudioOutput {
 public:
  TimedOutput(std::unique_ptr<AudioOutput> output, std::shared_ptr<std::atomic<double>> first)
      : output_(std::move(output)), first_(std::move(first)) {}

  void Begin() override {
    fresh_ = true;
    output_->Begin();
  }
  std::size_t Write(std::span<const std::int16_t> samples) override {
    const std::size_t taken = output_->Write(samples);
    if (taken > 0 && fresh_.exchange(false)) *first_ = Now();
    return taken;
  }
  bool Drain() override { return output_->Drain(); }
  void Stop() override { output_->Stop(); }

 private:
  std::unique_ptr<AudioOutput> output_;
  std::shared_ptr<std::atomic<double>> first_;
  std::atomic<bool> fresh_ = false;
};

using OutputMaker = std::function<std::unique_ptr<AudioOutput>()>;

/// Speech whose first samples are timed.
class TimedSpeech {
 public:
  TimedSpeech(SynthesizerMaker make_synthesizer, const OutputMaker& make_output)
      : speech_(std::move(make_synthesizer), [&](const Notice&) {
          return std::make_unique<TimedOutput>(make_output(), first_);
        }) {}

  SpeechOutput& Output() { return speech_; }

  /// Speaks and waits for the first samples; the time they took.
  double SpeakAndTime(const std::string& text, bool stop_before, const std::string& language = "") {
    bool begun = false;
    ended_ = false;
    Utterance utterance;
    utterance.text = text;
    if (!language.empty()) utterance.runs = {{text, language}};
    utterance.speed = 450;
    const double start = Now();
    if (stop_before) speech_.Stop();
    speech_.Speak(
        std::move(utterance), [&] { begun = true; }, [this](SpeechEnd) { ended_ = true; });
    if (!RunLoopUntil([&] { return begun; })) std::abort();
    return *first_ - start;
  }

  void WaitForEnd() {
    if (!RunLoopUntil([this] { return ended_; })) std::abort();
  }

 private:
  std::shared_ptr<std::atomic<double>> first_ = std::make_shared<std::atomic<double>>(0.0);
  bool ended_ = false;
  SpeechOutput speech_;
};

void MeasureSynthesizer() {
  EspeakSynthesizer espeak;
  std::vector<double> times;
  for (int i = 0; i <= kRuns; ++i) {
    const double start = Now();
    double first = 0;
    espeak.Synthesize(kKey, {}, [&](std::span<const std::int16_t>) {
      first = Now();
      return false;
    });
    if (i > 0) times.push_back(first - start);
  }
  Print("synthesizer's own first chunk (reference)", "none", times);
}

void MeasureSpeech(const char* name, const OutputMaker& make_output) {
  TimedSpeech speech([] { return std::make_unique<EspeakSynthesizer>(); }, make_output);
  speech.SpeakAndTime(kKey, false);  // the connection and the library's start are not counted
  speech.WaitForEnd();
  std::vector<double> idle;
  std::vector<double> interrupting;
  std::vector<double> stopping;
  for (int i = 0; i < kRuns; ++i) {
    idle.push_back(speech.SpeakAndTime(kKey, false));
    speech.WaitForEnd();
    speech.SpeakAndTime(kLong, false);
    interrupting.push_back(speech.SpeakAndTime(kLong, true));
    const double start = Now();
    speech.Output().Stop();
    stopping.push_back(Now() - start);
    speech.WaitForEnd();
  }
  Print("Speak to first samples, from silence", name, idle);
  Print("Stop and Speak to first samples, while speaking", name, interrupting);
  Print("Stop, the call", name, stopping);
}

/// Each text in another language than the one before, and twenty changes a second: what
/// they take beside texts in one language.
void MeasureLanguages() {
  constexpr std::array kLanguages = {"de", "fr", "es", "ru", "it"};
  TimedSpeech speech([] { return std::make_unique<EspeakSynthesizer>(); },
                     [] { return std::make_unique<SilentOutput>(); });
  for (const char* language : kLanguages) {  // read from the disk
    speech.SpeakAndTime(kKey, false, language);
    speech.WaitForEnd();
  }
  std::vector<double> same;
  std::vector<double> changed;
  std::vector<double> quick;
  for (int i = 0; i < kRuns; ++i) {
    const std::string language = kLanguages.at(static_cast<std::size_t>(i) % kLanguages.size());
    changed.push_back(speech.SpeakAndTime(kKey, false, language));
    speech.WaitForEnd();
    same.push_back(speech.SpeakAndTime(kKey, false, language));
    speech.WaitForEnd();
  }
  Print("Speak to first samples, in the language of the text before", "silent clock", same);
  Print("Speak to first samples, in another language", "silent clock", changed);
  const double begin = Now();
  for (int i = 0; i < kRuns; ++i) {
    const double next = begin + i * kTwentyASecond;
    RunLoopUntil([&] { return Now() >= next; });
    const std::string language = kLanguages.at(static_cast<std::size_t>(i) % kLanguages.size());
    quick.push_back(speech.SpeakAndTime(kLong, true, language));
  }
  Print("Stop and Speak to first samples, twenty languages a second", "silent clock", quick);
}

/// What the sink plays: when it became loud and when it was last loud.
class Ear {
 public:
  void Hear(const std::vector<std::int16_t>& samples) {
    const std::lock_guard lock(mutex_);
    for (const int sample : samples) {
      const bool loud = std::abs(sample) > 500;
      quiet_ = loud ? 0 : quiet_ + 1;
      if (loud) last_loud_ = Now();
      if (loud && waiting_for_loud_) {
        waiting_for_loud_ = false;
        first_loud_ = Now();
      }
    }
    changed_.notify_all();
  }
  void Listen() {
    const std::lock_guard lock(mutex_);
    waiting_for_loud_ = true;
  }
  double WaitForLoud() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !waiting_for_loud_; });
    return first_loud_;
  }
  /// Waits for a fifth of a second of silence; when it was last loud before it.
  double WaitForSilence() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return quiet_ > kSampleRate / 5; });
    return last_loud_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool waiting_for_loud_ = false;
  int quiet_ = 0;
  double first_loud_ = 0;
  double last_loud_ = 0;
};

/// At the far end, with a steady tone in place of a voice. Includes what the sink
/// and the way back from it take.
void MeasureHeard(const std::string& server) {
  Ear ear;
  SinkListener listener(server,
                        [&](const std::vector<std::int16_t>& samples) { ear.Hear(samples); });
  if (!listener.WaitReady()) std::abort();
  const auto record = std::make_shared<SynthesisRecord>();
  TimedSpeech speech([&] { return std::make_unique<RecordingSynthesizer>(record, 1000); },
                     [&] { return std::make_unique<PulseOutput>(server, nullptr); });
  std::vector<double> heard;
  std::vector<double> silent;
  for (int i = 0; i <= kHeardRuns; ++i) {
    ear.Listen();
    const double start = Now();
    speech.SpeakAndTime(kLong, false);
    const double loud = ear.WaitForLoud();
    const double stop = Now();
    speech.Output().Stop();
    const double quiet = ear.WaitForSilence();
    speech.WaitForEnd();
    if (i == 0) continue;  // the connection is not counted
    heard.push_back(loud - start);
    silent.push_back(std::max(0.0, quiet - stop));
  }
  Print("Speak to sound heard back from the sink", "pulse", heard);
  Print("Stop to silence heard back from the sink", "pulse", silent);
}

int Main() {
  MeasureSynthesizer();
  MeasureSpeech("silent clock", [] { return std::make_unique<SilentOutput>(); });
  MeasureLanguages();
  PrivateSoundServer server;
  if (!server.Start()) {
    std::fprintf(stderr, "no sound server:\n%s\n", server.Log().c_str());
    return 1;
  }
  MeasureSpeech("pulse", [&] { return std::make_unique<PulseOutput>(server.Address(), nullptr); });
  MeasureHeard(server.Address());
  return 0;
}

}  // namespace
}  // namespace corvane::desktop

int main() { return corvane::desktop::Main(); }
