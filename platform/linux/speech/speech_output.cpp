#include "platform/linux/speech/speech_output.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <utility>

#include "base/error.h"
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
  bool has_begun = false;  ///< only the worker looks at it
};

namespace {

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
    FinishLocked(*current_, SpeechEnd::kCut);
  }
  std::erase_if(waiting_, [&](const auto& request) {
    if (stays(request)) return false;
    FinishLocked(*request, SpeechEnd::kCut);
    return true;
  });
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

void SpeechOutput::Run() {
  std::unique_ptr<Synthesizer> synthesizer;
  try {
    synthesizer = make_synthesizer_();
  } catch (const RunTimeError& error) {
    synthesizer = std::make_unique<SilentSynthesizer>();
    loop_.Post([this, text = error.Description()] { Notified.Raise(text); });
  }
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return closing_ || !waiting_.empty(); });
    if (closing_) return;
    current_ = std::move(waiting_.front());
    waiting_.pop_front();
    audio_->Begin();  // under the lock: a Stop comes before or after it, never between
    const std::shared_ptr<Request> request = current_;
    lock.unlock();
    const bool spoken = Render(*synthesizer, *request) && audio_->Drain();
    lock.lock();
    // Not spoken and not cut happens only while an output gives up: over, all the same.
    if (!request->cut) FinishLocked(*request, spoken ? SpeechEnd::kSpoken : SpeechEnd::kCut);
    current_ = nullptr;
  }
}

bool SpeechOutput::Render(Synthesizer& synthesizer, Request& request) {
  bool whole = true;
  const Synthesizer::Sink sink = [&](std::span<const std::int16_t> samples) {
    whole = whole && Hand(samples, request);
    return whole;
  };
  const Utterance& asked = request.utterance;
  VoiceStyle style = StyleOf(asked);
  if (asked.sound != 0) {
    PlaySound(asked.sound, asked.manner.volume, sink);
    return whole && !request.cut;
  }
  if (asked.runs.empty()) synthesizer.Synthesize(asked.text, style, sink);
  for (const SpokenRun& run : asked.runs) {
    if (!whole) break;
    style.language = run.language;
    style.chosen = run.voice;
    synthesizer.Synthesize(run.text, style, sink);
  }
  return whole && !request.cut;
}

bool SpeechOutput::Hand(std::span<const std::int16_t> samples, Request& request) {
  while (!samples.empty()) {
    const std::size_t taken = request.cut ? 0 : audio_->Write(samples);
    if (taken == 0) return false;
    samples = samples.subspan(taken);
    if (request.has_begun) continue;
    request.has_begun = true;
    const std::lock_guard lock(mutex_);
    if (request.cut) return false;
    transcript_->Begin(request.id);
    if (request.begun) loop_.Post(std::move(request.begun));
  }
  return true;
}

std::unique_ptr<SpeechOutput> MakeSpeechOutput() {
  const std::string audio = Environment("CORVANE_AUDIO");
  return std::make_unique<SpeechOutput>(
      [] { return std::make_unique<EspeakSynthesizer>(); },
      [audio](Notice notice) { return MakeAudioOutput(audio, std::move(notice)); },
      Environment("CORVANE_TRANSCRIPT"));
}

}  // namespace corvane::desktop
