#include "platform/linux/speech/transcript.h"

#include <array>
#include <charconv>
#include <chrono>
#include <nlohmann/json.hpp>

#include "base/error.h"

namespace corvane::desktop {
namespace {

/// Seconds on the monotonic clock with six decimals, whatever the locale.
std::string Seconds() {
  const double now =
      std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
  std::array<char, 48> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), now, std::chars_format::fixed, 6);
  return {digits.data(), end.ptr};
}

/// A JSON string; whatever is not UTF-8 becomes U+FFFD.
std::string Quoted(const std::string& text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Member(const char* name, const std::string& value) {
  return std::string(", \"") + name + "\": " + value;
}

/// The first part's language and voice, and where there are several parts, those of all.
std::string Runs(const std::vector<SpokenRun>& runs, const std::string& own) {
  const auto language_of = [&own](const SpokenRun& run) {
    return Quoted(run.language.empty() ? own : run.language);
  };
  const auto voice_of = [](const SpokenRun& run) {
    return run.voice.empty() ? "" : Member("voice", Quoted(run.voice));
  };
  if (runs.empty()) return own.empty() ? "" : Member("language", Quoted(own));
  const std::string members = Member("language", language_of(runs[0])) + voice_of(runs[0]);
  if (runs.size() < 2) return members;
  std::string list;
  for (const SpokenRun& run : runs) {
    if (!list.empty()) list += ", ";
    list += "{\"text\": " + Quoted(run.text) + Member("language", language_of(run)) +
            voice_of(run) + "}";
  }
  return members + Member("runs", "[" + list + "]");
}

/// What is not as it is without any choice.
std::string Manner(const Utterance& utterance) {
  const SpeechManner usual;
  const SpeechManner& manner = utterance.manner;
  std::string members;
  const auto add = [&](const char* name, int value, int usually) {
    if (value != usually) members += Member(name, std::to_string(value));
  };
  add("range", manner.range, usual.range);
  add("volume", manner.volume, usual.volume);
  add("punctuation", manner.punctuation, usual.punctuation);
  add("capitals", manner.capitals, usual.capitals);
  add("digits", manner.digits ? 1 : 0, 0);
  add("sound", utterance.sound, 0);
  return members;
}

}  // namespace

Transcript::Transcript(const std::string& file) {
  if (file.empty()) return;
  file_ = file == "-" ? stdout : std::fopen(file.c_str(), "ae");
  if (file_ == nullptr) {
    throw RunTimeError(kErrPermissionDenied, "Speech",
                       "The speech transcript \"" + file + "\" cannot be written.");
  }
}

Transcript::~Transcript() {
  if (file_ != nullptr && file_ != stdout) std::fclose(file_);
}

void Transcript::Speak(int id, const Utterance& utterance, const std::string& own) {
  if (file_ == nullptr) return;
  WriteLine("speak", id,
            Member("text", Quoted(utterance.text)) +
                Member("pitch", std::to_string(utterance.pitch)) +
                Member("speed", std::to_string(utterance.speed)) +
                Member("urgent", utterance.urgent ? "true" : "false") + Runs(utterance.runs, own) +
                Manner(utterance));
}

void Transcript::Begin(int id, bool by_server) {
  WriteLine("begin", id, by_server ? Member("by", Quoted("server")) : "");
}
void Transcript::Rest(int id, const std::string& text) {
  WriteLine("rest", id, Member("text", Quoted(text)));
}
void Transcript::End(int id) { WriteLine("end", id, ""); }
void Transcript::Cut(int id) { WriteLine("cut", id, ""); }

void Transcript::WriteLine(const char* event, int id, const std::string& rest) {
  if (file_ == nullptr) return;
  const std::lock_guard lock(mutex_);
  const std::string line = "{\"t\": " + Seconds() + ", \"event\": \"" + event +
                           "\", \"id\": " + std::to_string(id) + rest + "}\n";
  std::fwrite(line.data(), 1, line.size(), file_);
  std::fflush(file_);
}

}  // namespace corvane::desktop
