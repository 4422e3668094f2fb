#include "platform/linux/speech/character_file.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "base/error.h"
#include "base/language.h"
#include "base/text.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSignature = "Corvane character 1";
constexpr std::size_t kMostBytes = std::size_t{64} * 1024;
constexpr std::size_t kMostName = 64;
constexpr std::size_t kMostLanguages = 200;
constexpr int kMostPitchShift = 80;
constexpr int kMostSpeedShift = 200;

[[noreturn]] void Fail(int number, const std::string& file, const std::string& what) {
  throw RunTimeError(number, "Agent", "The character file \"" + file + "\" " + what);
}

std::string Contents(const std::string& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) Fail(kErrFileNotFound, file, "was not found.");
  // Anything else, a pipe say, could keep the program waiting for ever.
  if (!fs::is_regular_file(status)) Fail(kErrDeviceIo, file, "is not a character file.");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) Fail(kErrPermissionDenied, file, "cannot be read.");
  std::string contents(kMostBytes + 1, '\0');
  stream.read(contents.data(), static_cast<std::streamsize>(contents.size()));
  if (stream.bad()) Fail(kErrPermissionDenied, file, "cannot be read.");
  contents.resize(static_cast<std::size_t>(stream.gcount()));
  if (contents.size() > kMostBytes) Fail(kErrDeviceIo, file, "is too large for a character file.");
  return contents;
}

/// Reads the lines of one file into a CharacterFile.
class Reader {
 public:
  explicit Reader(const std::string& file) : file_(file) {}

  CharacterFile Read() {
    const std::string contents = Contents(file_);
    std::string_view rest = contents;
    if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
    if (TakeLine(rest) != kSignature) Fail(kErrDeviceIo, file_, "is not a character file.");
    while (!rest.empty()) {
      const std::string_view line = TakeLine(rest);
      if (line.empty() || line.front() == '#') continue;
      if (line.front() == '[' && line.back() == ']') {
        section_ = line;
      } else {
        ReadEntry(line);
      }
    }
    if (result_.name.empty()) Fail(kErrDeviceIo, file_, "names no character.");
    if (result_.voice.empty()) Fail(kErrDeviceIo, file_, "names no voice.");
    return result_;
  }

 private:
  std::string_view TakeLine(std::string_view& rest) {
    ++line_;
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return text::trimmed(line);
  }

  [[noreturn]] void Reject(const std::string& why) const {
    Fail(kErrDeviceIo, file_, "is broken in line " + std::to_string(line_) + ": " + why);
  }

  /// Sections and keys that are not known are for later versions.
  void ReadEntry(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) Reject("a line must read key=value.");
    const std::string_view key = text::trimmed(line.substr(0, equals));
    const std::string_view value = text::trimmed(line.substr(equals + 1));
    if (section_ == "[Character]") {
      if (key == "Name") result_.name = Name(value);
      if (key == "Voice") result_.voice = Voice(value);
      if (key == "PitchShift") result_.pitch_shift = Number(value, kMostPitchShift);
      if (key == "SpeedShift") result_.speed_shift = Number(value, kMostSpeedShift);
    } else if (section_ == "[Languages]") {
      if (result_.languages.size() >= kMostLanguages) Reject("there are too many languages.");
      result_.languages[Language(key)] = Voice(value);
    } else if (section_ == "[Pictures]") {
      if (key == "Idle") result_.idle = Picture(value);
      if (key == "Speaking") result_.speaking = Picture(value);
    }
  }

  std::string Language(std::string_view key) const {
    const std::string language = language::Tag(key);
    if (language.empty() || language::Primary(language) != language) {
      Reject("a language is named like de.");
    }
    return language;
  }

  std::string Name(std::string_view value) const {
    if (value.size() > kMostName) Reject("the name is too long.");
    for (const char c : value) {
      if (static_cast<unsigned char>(c) < 0x20) Reject("the name has a control character.");
    }
    return std::string(value);
  }

  /// Letters, digits and the joiners of voice names: the synthesizer looks voices
  /// up as files, and no other file must be reachable.
  std::string Voice(std::string_view value) const {
    constexpr std::string_view kAllowed =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_+";
    if (value.size() > kMostName || value.find_first_not_of(kAllowed) != std::string_view::npos) {
      Reject("the voice name is not one.");
    }
    return std::string(value);
  }

  int Number(std::string_view value, int most) const {
    int number = 0;
    const char* end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc() || stop != end || number < -most || number > most) {
      Reject("a whole number from -" + std::to_string(most) + " to " + std::to_string(most) +
             " is needed.");
    }
    return number;
  }

  /// A picture lies beside the character file.
  std::string Picture(std::string_view value) const {
    if (value.empty()) return {};
    if (value.size() > kMostName || value.front() == '.' ||
        value.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos) {
      Reject("a picture must be a file beside the character file.");
    }
    return (fs::path(file_).parent_path() / value).string();
  }

  const std::string& file_;
  std::string_view section_;
  int line_ = 0;
  CharacterFile result_;
};

}  // namespace

CharacterFile ReadCharacterFile(const std::string& name, const std::string& file) {
  CharacterFile character = Reader(file).Read();
  if (character.name != name) {
    Fail(kErrDeviceIo, file,
         "holds the character \"" + character.name + "\", not \"" + name + "\".");
  }
  return character;
}

}  // namespace corvane::desktop
