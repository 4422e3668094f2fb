#include "platform/linux/speech/espeak_synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/language.h"
#include "platform/linux/speech/speech_text.h"
#include "platform/linux/speech/time_stretch.h"

namespace corvane::desktop {
namespace {

constexpr int kChunkMilliseconds = 20;

/// Whether the library's one state is taken.
std::atomic<bool> in_use{false};

/// Starts the library once a process: after its second espeak_Terminate it waits
/// for ever (seen with 1.51), so it is never terminated. False without voice data.
bool StartLibrary() {
  static const bool started = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kChunkMilliseconds,
                                                nullptr, espeakINITIALIZE_DONT_EXIT) == kSampleRate;
  return started;
}

int HandOver(short* samples, int count, espeak_EVENT* events) {
  if (samples == nullptr || count <= 0) return 0;
  const auto& sink = *static_cast<const Synthesizer::Sink*>(events->user_data);
  return sink({samples, static_cast<std::size_t>(count)}) ? 0 : 1;
}

/// The menu's middle (90) is the library's middle (50); one step of 20 is 20, so
/// that the ends (10 and 90) stay natural.
int LibraryPitch(int pitch) {
  return std::clamp(pitch, kPitchLowest, kPitchHighest) - kPitchDefault + 50;
}

/// What the library calls the voices that may speak a language, best first: its files are
/// named after languages.
std::vector<std::string> VoicesOf(const std::string& language) {
  // Pages' names for a few that it knows by others.
  static const std::map<std::string_view, std::string_view> kOtherNames = {
      {"zh", "cmn"}, {"zh-hk", "yue"}, {"zh-yue", "yue"}, {"no", "nb"}, {"nn", "nb"},
      {"iw", "he"},  {"in", "id"},     {"ji", "yi"},      {"mo", "ro"}, {"sh", "hr"}};
  std::vector<std::string> names;
  for (const std::string_view tag : {std::string_view(language), language::Primary(language)}) {
    const auto other = kOtherNames.find(tag);
    names.emplace_back(other != kOtherNames.end() ? other->second : tag);
  }
  return names;
}

}  // namespace

std::string VoiceLanguage(const std::string& voice) {
  const std::size_t folder = voice.find('/');
  const std::string name = folder == std::string::npos ? voice : voice.substr(folder + 1);
  return language::Tag(name.substr(0, name.find('+')));
}

EspeakSynthesizer::EspeakSynthesizer() {
  if (in_use.exchange(true)) {
    throw RunTimeError(kErrRefused, "Speech", "The speech synthesizer is already in use.");
  }
  if (!StartLibrary()) {
    in_use = false;
    throw RunTimeError(kErrDeviceIo, "Speech", "The speech synthesizer could not be started.");
  }
  espeak_SetSynthCallback(HandOver);
  UseVoice(kDefaultVoice, "");
}

EspeakSynthesizer::~EspeakSynthesizer() { in_use = false; }

void EspeakSynthesizer::UseVoice(const std::string& voice, const std::string& language) {
  if (voice == voice_ && language == language_) return;
  voice_ = voice;
  language_ = language;
  // An unknown voice must not silence anybody: the default one speaks instead.
  const auto is_there = [](const std::string& name) {
    return !name.empty() && espeak_SetVoiceByName(name.c_str()) == EE_OK;
  };
  const std::string own = VoiceLanguage(voice);
  const bool is_own = language.empty() || language::Primary(language) == language::Primary(own);
  if (!is_own) {
    // Another mouth, but the same throat: what stands behind the plus.
    const std::size_t variant = std::min(voice.find('+'), voice.size());
    for (const std::string& name : VoicesOf(language)) {
      if (is_there(name + voice.substr(variant))) return;
    }
  }
  if (!is_there(voice)) espeak_SetVoiceByName(kDefaultVoice);
}

void EspeakSynthesizer::Synthesize(const std::string& text, const VoiceStyle& style,
                                   const Sink& sink) {
  UseVoice(style.voice.empty() ? kDefaultVoice : style.voice, style.language);
  const int speed = std::clamp(style.speed, kSpeedLowest, kSpeedHighest);
  espeak_SetParameter(espeakRATE, std::max(speed, espeakRATE_MINIMUM), 0);
  espeak_SetParameter(espeakPITCH, LibraryPitch(style.pitch), 0);

  TimeStretch stretch(std::max(1.0, static_cast<double>(espeakRATE_MINIMUM) / speed));
  const bool stretched = speed < espeakRATE_MINIMUM;
  bool refused = false;
  const Sink guarded = [&](std::span<const std::int16_t> samples) {
    refused = refused || !(stretched ? stretch.Push(samples, sink) : sink(samples));
    return !refused;
  };

  // Short runs of marks are named; in sentences they only make the pauses.
  const bool only_marks = IsOnlyMarks(text);
  espeak_SetParameter(espeakPUNCTUATION, only_marks ? espeakPUNCT_ALL : espeakPUNCT_NONE, 0);
  const std::string_view silence = NameOfSilence(text);
  TextPieces pieces(silence.empty() ? std::string_view(text) : silence);
  std::string piece;
  std::string following;
  bool more = pieces.Next(piece);
  while (more && !refused) {
    more = pieces.Next(following);
    // What comes behind a sentence must not run into it. Without a mark at its end the
    // text may be a name that is said of something: that ends at once.
    const bool pause = more || (!only_marks && EndsSentence(piece));
    const unsigned int flags = espeakCHARS_UTF8 | (pause ? espeakENDPAUSE : 0);
    espeak_Synth(piece.c_str(), piece.size() + 1, 0, POS_CHARACTER, 0, flags, nullptr,
                 const_cast<Sink*>(&guarded));
    piece.swap(following);
  }
  if (stretched && !refused) stretch.Finish(sink);
}

}  // namespace corvane::desktop
