#include "platform/linux/speech/espeak_synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <atomic>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/language.h"
#include "platform/linux/speech/speech_text.h"
#include "platform/linux/speech/time_stretch.h"
#include "platform/linux/speech/voice_names.h"

namespace corvane::desktop {
namespace {

constexpr int kChunkMilliseconds = 20;

/// Whether the library's one state is taken.
std::atomic<bool> in_use{false};
std::atomic<bool> is_started{false};

/// Starts the library once a process: after its second espeak_Terminate it waits
/// for ever (seen with 1.51), so it is never terminated. False without voice data.
bool StartLibrary() {
  static const bool started = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kChunkMilliseconds,
                                                nullptr, espeakINITIALIZE_DONT_EXIT) == kSampleRate;
  is_started = started;
  return started;
}

int HandOver(short* samples, int count, espeak_EVENT* events) {
  if (samples == nullptr || count <= 0) return 0;
  const auto& sink = *static_cast<const Synthesizer::Sink*>(events->user_data);
  return sink({samples, static_cast<std::size_t>(count)}) ? 0 : 1;
}

// Values of SpeechManner::punctuation.
constexpr int kMostMarks = 2;
constexpr int kAllMarks = 3;
// All but those that make the pauses of a sentence.
constexpr const wchar_t* kMostMarksList = L"#$%&*+-/<=>@[]^_`{|}~()\"\\";

/// Of the library's ways to tell a capital, two can be understood: a word, and a pitch
/// that is so many hertz higher.
int LibraryCapitals(int capitals) {
  constexpr int kWord = 2;
  constexpr int kHigher = 30;
  return capitals == 1 ? kHigher : capitals == 2 ? kWord : 0;
}

/// The menu's middle (90) is the library's middle (50); one step of 20 is 20, so
/// that the menu's ends (10 and 90) stay natural.
int LibraryPitch(int pitch) {
  return std::clamp(pitch, kPitchLowest, kPitchHighest) - kPitchDefault + 50;
}

}  // namespace

std::string VoiceLanguage(const std::string& voice) {
  const std::size_t folder = voice.find('/');
  const std::string name = folder == std::string::npos ? voice : voice.substr(folder + 1);
  return language::Tag(name.substr(0, name.find('+')));
}

std::string EspeakDataFolder() {
  if (!is_started) return {};
  const char* folder = nullptr;
  espeak_Info(&folder);
  return folder != nullptr ? folder : "";
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
  espeak_SetPunctuationList(kMostMarksList);
  UseVoice(kDefaultVoice, "", "");
}

EspeakSynthesizer::~EspeakSynthesizer() { in_use = false; }

// Another mouth, but the same throat: what stands behind the plus.
void EspeakSynthesizer::UseVoice(const std::string& voice, const std::string& language,
                                 const std::string& chosen) {
  if (voice == voice_ && language == language_ && chosen == chosen_) return;
  voice_ = voice;
  language_ = language;
  chosen_ = chosen;
  const std::string& varied = chosen.find('+') != std::string::npos ? chosen : voice;
  const std::string variant = varied.substr(std::min(varied.find('+'), varied.size()));
  const std::string named = chosen.substr(0, chosen.find('+'));
  const std::string own = VoiceLanguage(voice);
  const bool is_own = language.empty() || language::Primary(language) == language::Primary(own);

  std::vector<std::string> names;
  if (!is_own) names = VoicesOf(language);
  if (!named.empty()) names.insert(names.begin(), named);
  names.push_back(voice.substr(0, voice.find('+')));
  // An unknown voice must not silence anybody: the default one speaks instead.
  names.emplace_back(kDefaultVoice);
  for (const std::string& name : names) {
    if (!name.empty() && espeak_SetVoiceByName((name + variant).c_str()) == EE_OK) return;
  }
  espeak_SetVoiceByName(kDefaultVoice);
}

// What one text has set holds for the next one, too.
void EspeakSynthesizer::UseManner(const VoiceStyle& style, bool only_marks) {
  const SpeechManner& manner = style.manner;
  espeak_SetParameter(espeakPITCH, LibraryPitch(style.pitch), 0);
  espeak_SetParameter(espeakRANGE, std::clamp(manner.range, 0, 100), 0);
  espeak_SetParameter(espeakVOLUME, std::clamp(manner.volume, 0, 100), 0);
  espeak_SetParameter(espeakCAPITALS, LibraryCapitals(manner.capitals), 0);
  // Short runs of marks are named; in sentences they only make the pauses, unless the
  // user wants to hear them.
  espeak_PUNCT_TYPE marks = espeakPUNCT_NONE;
  if (only_marks || manner.punctuation >= kAllMarks) {
    marks = espeakPUNCT_ALL;
  } else if (manner.punctuation == kMostMarks) {
    marks = espeakPUNCT_SOME;
  }
  espeak_SetParameter(espeakPUNCTUATION, marks, 0);
}

void EspeakSynthesizer::Synthesize(const std::string& text, const VoiceStyle& style,
                                   const Sink& sink) {
  UseVoice(style.voice.empty() ? kDefaultVoice : style.voice, style.language, style.chosen);
  // Beyond its own fastest the library goes on by itself: it leaves out periods of the
  // finished sound.
  const int speed = std::clamp(style.speed, kSpeedLowest, kSpeedHighest);
  espeak_SetParameter(espeakRATE, std::max(speed, espeakRATE_MINIMUM), 0);

  TimeStretch stretch(std::max(1.0, static_cast<double>(espeakRATE_MINIMUM) / speed));
  const bool stretched = speed < espeakRATE_MINIMUM;
  bool refused = false;
  const Sink guarded = [&](std::span<const std::int16_t> samples) {
    refused = refused || !(stretched ? stretch.Push(samples, sink) : sink(samples));
    return !refused;
  };

  const bool only_marks = style.manner.punctuation == 0 ? IsLoneMark(text) : IsOnlyMarks(text);
  UseManner(style, only_marks);
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
    if (style.manner.digits) piece = WithLoneDigits(piece);
    espeak_Synth(piece.c_str(), piece.size() + 1, 0, POS_CHARACTER, 0, flags, nullptr,
                 const_cast<Sink*>(&guarded));
    piece.swap(following);
  }
  if (stretched && !refused) stretch.Finish(sink);
}

}  // namespace corvane::desktop
