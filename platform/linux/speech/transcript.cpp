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

/// The first part's language, and where there are several, all of them.
std::string Languages(const std::vector<LanguageRun>& runs, const std::string& own) {
  const auto language_of = [&own](const LanguageRun& run) {
    return Quoted(run.language.empty() ? own : run.language);
  };
  if (runs.empty() && own.empty()) return {};
  std::string members = ", \"language\": " + (runs.empty() ? Quoted(own) : language_of(runs[0]));
  if (runs.size() < 2) return members;
  std::string list;
  for (const LanguageRun& run : runs) {
    if (!list.empty()) list += ", ";
    list += "{\"text\": " + Quoted(run.text) + ", \"language\": " + language_of(run) + "}";
  }
  return members + ", \"runs\": [" + list + "]";
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

void Transcript::Speak(int id, const std::string& text, int pitch, int speed, bool urgent,
                       const std::vector<LanguageRun>& runs, const std::string& own) {
  if (file_ == nullptr) return;
  WriteLine("speak", id,
            ", \"text\": " + Quoted(text) + ", \"pitch\": " + std::to_string(pitch) +
                ", \"speed\": " + std::to_string(speed) +
                ", \"urgent\": " + (urgent ? "true" : "false") + Languages(runs, own));
}

void Transcript::Begin(int id) { WriteLine("begin", id, ""); }
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
