#include "platform/linux/speech/speech_output.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "base/error.h"
#include "base/language.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/sign_sound.h"
#include "platform/linux/speech/silent_output.h"
#include "platform/linux/speech/silent_synthesizer.h"
#include "platform/linux/speech/transcript.h"

namespace corvane::desktop {

struct SpeechOutput::Request {
  int id;
  Utterance utterance;
  Begun begun;
  Ended ended;
  std::atomic<bool> cut = false;
  // Only the worker looks at these.
  bool has_begun = false;
  bool by_server = false;  ///< a speech server speaks it
};

namespace {

/// How often a server that starts is asked whether it can speak.
constexpr std::chrono::milliseconds kAskServerAgain{100};

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

VoiceStyle StyleOf(const Utterance& utterance) {
  return {.voice = utterance.voice,
          .pitch = utterance.pitch + utterance.pitch_shift,
          .speed = utterance.speed + utterance.speed_shift,
          .manner = utterance.manner};
}

/// The one that the speaker has for the run's language; empty where it has none.
std::string UsualVoiceOf(const SpokenRun& run, const Utterance& utterance) {
  const auto at = utterance.voices.find(std::string(language::Primary(run.language)));
  return at == utterance.voices.end() ? std::string() : at->second;
}

std::string OwnLanguageOf(const Utterance& utterance) {
  return VoiceLanguage(utterance.voice.empty() ? kDefaultVoice : utterance.voice);
}

}  // namespace

SpeechOutput::SpeechOutput(SynthesizerMaker make_synthesizer, const AudioMaker& make_audio,
                           const std::string& transcript)
    : make_synthesizer_(std::move(make_synthesizer)) {
  const auto notice = [this](const std::string& text) {
    loop_.Post([this, text] { Notified.Raise(text); });
  };
  try {
    transcript_ = std::make_unique<Transcript>(transcript);
  } catch (const RunTimeError& error) {
    transcript_ = std::make_unique<Transcript>();
    notice(error.Description());
  }
  try {
    audio_ = make_audio(notice);
  } catch (const RunTimeError& error) {
    audio_ = std::make_unique<SilentOutput>();
    notice(error.Description() + " Speech goes on silently.");
  }
  worker_ = std::thread([this] { Run(); });
}

SpeechOutput::~SpeechOutput() {
  Stop();
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  wake_.notify_one();
  worker_.join();
}

int SpeechOutput::Speak(Utterance utterance, Begun begun, Ended ended) {
  auto request = std::make_shared<Request>();
  request->id = NextRequest();
  request->utterance = std::move(utterance);
  request->begun = std::move(begun);
  request->ended = std::move(ended);
  const Utterance& asked = request->utterance;
  {
    const std::lock_guard lock(mutex_);
    transcript_->Speak(request->id, asked, OwnLanguageOf(asked));
    waiting_.push_back(request);
    if (waiting_.size() > kMostWaiting) {
      FinishLocked(*waiting_.front(), SpeechEnd::kCut);
      waiting_.pop_front();
    }
    SpeakingLocked(true);
  }
  wake_.notify_one();
  return request->id;
}

void SpeechOutput::Stop(const std::vector<int>& kept) {
  const auto stays = [&kept](const auto& request) {
    return std::find(kept.begin(), kept.end(), request->id) != kept.end();
  };
  const std::lock_guard lock(mutex_);
  if (current_ && !current_->cut && !stays(current_)) {
    current_->cut = true;
    audio_->Stop();
    if (server_) server_->Wake();
    FinishLocked(*current_, SpeechEnd::kCut);
  }
  std::erase_if(waiting_, [&](const auto& request) {
    if (stays(request)) return false;
    FinishLocked(*request, SpeechEnd::kCut);
    return true;
  });
  if (!current_ && waiting_.empty()) SpeakingLocked(false);
}

void SpeechOutput::SpeakingLocked(bool speaking) {
  if (speaking == std::exchange(speaking_, speaking)) return;
  loop_.Post([this, speaking] { Speaking.Raise(speaking); });
}

void SpeechOutput::FinishLocked(Request& request, SpeechEnd end) {
  if (end == SpeechEnd::kSpoken) {
    transcript_->End(request.id);
  } else {
    transcript_->Cut(request.id);
  }
  if (request.ended) {
    loop_.Post([ended = std::move(request.ended), end] { ended(end); });
  }
}

void SpeechOutput::SpeakThrough(std::unique_ptr<SpeechServer> server) {
  {
    const std::lock_guard lock(mutex_);
    next_server_ = std::move(server);
    other_server_ = true;
  }
  wake_.notify_one();
}

std::unique_ptr<Synthesizer> SpeechOutput::MakeSynthesizer() {
  try {
    return make_synthesizer_();
  } catch (const RunTimeError& error) {
    loop_.Post([this, text = error.Description()] { Notified.Raise(text); });
    return std::make_unique<SilentSynthesizer>();
  }
}

void SpeechOutput::Run() {
  const std::unique_ptr<Synthesizer> synthesizer = MakeSynthesizer();
  for (;;) {
    std::unique_lock lock(mutex_);
    const auto woken = [this] { return closing_ || other_server_ || !waiting_.empty(); };
    if (server_state_ == SpeechServer::State::kStarting) {
      wake_.wait_for(lock, kAskServerAgain, woken);
    } else {
      wake_.wait(lock, woken);
    }
    if (closing_) return;
    if (other_server_) TakeServer();
    lock.unlock();
    const bool by_server = PrepareServer();
    lock.lock();
    if (waiting_.empty() || closing_) continue;
    current_ = std::move(waiting_.front());
    waiting_.pop_front();
    audio_->Begin();  // under the lock: a Stop comes before or after it, never between
    const std::shared_ptr<Request> request = current_;
    request->by_server = by_server;
    lock.unlock();
    const bool spoken = Render(*synthesizer, *request) && (request->by_server || audio_->Drain());
    lock.lock();
    // Not spoken and not cut happens only while an output gives up: over, all the same.
    if (!request->cut) FinishLocked(*request, spoken ? SpeechEnd::kSpoken : SpeechEnd::kCut);
    current_ = nullptr;
    if (waiting_.empty()) SpeakingLocked(false);
  }
}

// The lock is held.
void SpeechOutput::TakeServer() {
  other_server_ = false;
  server_ = next_server_;
  server_state_ = server_ ? SpeechServer::State::kStarting : SpeechServer::State::kLost;
}

bool SpeechOutput::PrepareServer() {
  if (server_state_ == SpeechServer::State::kStarting) ServerBecomes(server_->Prepare());
  return server_state_ == SpeechServer::State::kReady;
}

void SpeechOutput::ServerBecomes(SpeechServer::State state) {
  if (state == server_state_) return;
  server_state_ = state;
  loop_.Post([this, server = std::weak_ptr(server_), state] {
    // What is told of one that has been given up concerns nobody any more.
    const std::shared_ptr<SpeechServer> told = server.lock();
    if (told && told == next_server_) ServerIs.Raise(state);
  });
}

bool SpeechOutput::Render(Synthesizer& synthesizer, Request& request) {
  bool whole = true;
  const Synthesizer::Sink sink = [&](std::span<const std::int16_t> samples) {
    whole = whole && Hand(samples, request);
    return whole;
  };
  const Utterance& asked = request.utterance;
  if (asked.sound != 0) {
    request.by_server = false;
    PlaySound(asked.sound, asked.manner.volume, sink);
    return whole && !request.cut;
  }
  std::vector<SpokenRun> runs = asked.runs;
  if (runs.empty()) runs.push_back({asked.text});
  for (SpokenRun& run : runs) {
    if (!whole || request.cut) return false;
    if (request.by_server && RenderThroughServer(request, run)) continue;
    if (request.by_server) return false;
    VoiceStyle style = StyleOf(asked);
    style.language = run.language;
    style.chosen = run.voice.empty() ? UsualVoiceOf(run, asked) : run.voice;
    synthesizer.Synthesize(run.text, style, sink);
  }
  return whole && !request.cut;
}

// False when it is not said to its end; the run is then what is left for the synthesizer,
// if it is the synthesizer's now.
bool SpeechOutput::RenderThroughServer(Request& request, SpokenRun& run) {
  VoiceStyle style = StyleOf(request.utterance);
  style.language = run.language;
  style.chosen = run.voice;
  SpeechServer::Result result = server_->Speak(
      run.text, style, [&] { TellBegun(request); }, [&] { return request.cut.load(); });
  if (result.outcome != SpeechServer::Outcome::kLost) {
    return result.outcome == SpeechServer::Outcome::kSpoken;
  }
  ServerBecomes(SpeechServer::State::kLost);
  request.by_server = false;
  run.text = std::move(result.rest);
  const std::lock_guard lock(mutex_);
  if (!request.cut) transcript_->Rest(request.id, run.text);
  return false;
}

bool SpeechOutput::Hand(std::span<const std::int16_t> samples, Request& request) {
  while (!samples.empty()) {
    const std::size_t taken = request.cut ? 0 : audio_->Write(samples);
    if (taken == 0) return false;
    samples = samples.subspan(taken);
    TellBegun(request);
    if (request.cut) return false;
  }
  return true;
}

void SpeechOutput::TellBegun(Request& request) {
  if (request.has_begun) return;
  request.has_begun = true;
  const std::lock_guard lock(mutex_);
  if (request.cut) return;
  transcript_->Begin(request.id, request.by_server);
  if (request.begun) loop_.Post(std::move(request.begun));
}

std::unique_ptr<SpeechOutput> MakeSpeechOutput() {
  const std::string audio = Environment("CORVANE_AUDIO");
  return std::make_unique<SpeechOutput>(
      [] { return std::make_unique<EspeakSynthesizer>(); },
      [audio](Notice notice) { return MakeAudioOutput(audio, std::move(notice)); },
      Environment("CORVANE_TRANSCRIPT"));
}

}  // namespace corvane::desktop
