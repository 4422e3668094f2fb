#include "platform/linux/speech/ssip_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>

#include "base/language.h"
#include "platform/linux/speech/speech_text.h"

namespace corvane::desktop {
namespace {

// What the server's modules mean by their slowest, usual and fastest speed.
constexpr int kSlowest = 80;
constexpr int kUsual = 170;
constexpr int kFastest = 450;
// A pitch that no page's words have, where a variant of the voice is asked for, which the
// server does not know.
constexpr int kOtherPitch = 40;
constexpr std::size_t kMostVoices = 20'000;
constexpr int kMostMarks = 2;  // SpeechManner::punctuation
constexpr int kAllMarks = 3;

// From words a minute to the server's scale from -100 to 100.
int Rate(int speed) {
  const int rate = speed < kUsual ? (speed - kUsual) * 100 / (kUsual - kSlowest)
                                  : (speed - kUsual) * 100 / (kFastest - kUsual);
  return std::clamp(rate, -100, 100);
}

int Pitch(const VoiceStyle& style) {
  const int pitch = std::clamp((style.pitch - kPitchDefault) * 2, -100, 100);
  if (style.chosen.find('+') == std::string::npos) return pitch;
  return pitch + kOtherPitch <= 100 ? pitch + kOtherPitch : pitch - kOtherPitch;
}

int Around(int percent) { return std::clamp(percent * 2 - 100, -100, 100); }

std::string Punctuation(const SpeechManner& manner, const std::string& text) {
  const bool only_marks = manner.punctuation == 0 ? IsLoneMark(text) : IsOnlyMarks(text);
  if (only_marks || manner.punctuation >= kAllMarks) return "all";
  return manner.punctuation == kMostMarks ? "most" : "none";
}

bool IsBlank(char c) { return c == ' ' || c == '\n'; }

bool IsPlain(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
}

std::string_view TakeField(std::string_view& line) {
  const std::size_t end = line.find('\t');
  const std::string_view field = line.substr(0, end);
  line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
  return field;
}

}  // namespace

std::vector<SsipSetting> SsipSettings(const VoiceStyle& style, const std::string& text) {
  const std::string own = VoiceLanguage(style.voice.empty() ? kDefaultVoice : style.voice);
  const std::string& language = style.language.empty() ? own : style.language;
  const std::string named = SsipNameOf(style.chosen.substr(0, style.chosen.find('+')));
  constexpr std::array kCapitals = {"none", "icon", "spell"};
  const auto capitals = static_cast<std::size_t>(std::clamp(style.manner.capitals, 0, 2));
  return {
      {"LANGUAGE", language},
      {"SYNTHESIS_VOICE", named.empty() ? "NULL" : named},
      {"RATE", std::to_string(Rate(style.speed))},
      {"PITCH", std::to_string(Pitch(style))},
      {"PITCH_RANGE", std::to_string(Around(style.manner.range))},
      {"VOLUME", std::to_string(Around(style.manner.volume))},
      {"PUNCTUATION", Punctuation(style.manner, text)},
      {"CAP_LET_RECOGN", kCapitals.at(capitals)},
  };
}

std::size_t EndOfWord(std::string_view text, std::size_t place) {
  while (place < text.size() && !IsBlank(text[place])) ++place;
  while (place < text.size() && IsBlank(text[place])) ++place;
  return place;
}

// A line of dots alone would end the text; here every text is one line in an element.
std::string SsipText(const std::string& text) {
  std::string marked = "<speak>";
  for (std::size_t at = 0; at < text.size();) {
    if (at > 0) marked += "<mark name=\"" + std::to_string(at) + "\"/>";
    const std::size_t end = EndOfWord(text, at);
    for (; at < end; ++at) {
      switch (text[at]) {
        case '<':
          marked += "&lt;";
          break;
        case '>':
          marked += "&gt;";
          break;
        case '&':
          marked += "&amp;";
          break;
        case '\r':
        case '\n':
          marked += ' ';
          break;
        default:
          marked += text[at];
      }
    }
  }
  return marked + "</speak>";
}

std::string VoiceNameOf(std::string_view ssip_name) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string name;
  for (const char c : ssip_name) {
    if (IsPlain(c)) {
      name += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      name += {'_', kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
  }
  return name;
}

std::string SsipNameOf(std::string_view voice_name) {
  std::string name;
  while (!voice_name.empty()) {
    if (voice_name.front() != '_') {
      name += voice_name.front();
      voice_name.remove_prefix(1);
      continue;
    }
    unsigned int byte = 0;
    const std::string_view digits = voice_name.substr(1, 2);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    // Nothing that would be another command may come out of it.
    if (error != std::errc() || digits.size() != 2 || end != digits.data() + 2 || byte < ' ') {
      return {};
    }
    name += static_cast<char>(byte);
    voice_name.remove_prefix(3);
  }
  return name;
}

InstalledVoices VoicesOfList(const std::vector<std::string>& lines) {
  InstalledVoices all;
  for (std::string_view line : lines) {
    const std::string_view name = TakeField(line);
    const std::string_view field = TakeField(line);
    const std::string language = language::Tag(field);
    if (name.empty() || language.empty() || all.voices.size() >= kMostVoices) continue;
    all.voices.push_back({VoiceNameOf(name), language, std::string(name)});
  }
  std::stable_sort(all.voices.begin(), all.voices.end(), [](const auto& a, const auto& b) {
    const auto key = [](const InstalledVoice& voice) {
      return std::tuple(voice.label.find('+') != std::string::npos,
                        language::Primary(voice.language),
                        voice.language.find('-') != std::string::npos);
    };
    return key(a) < key(b);
  });
  return all;
}

}  // namespace corvane::desktop
