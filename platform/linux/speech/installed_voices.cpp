#include "platform/linux/speech/installed_voices.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <tuple>

#include "base/language.h"
#include "platform/linux/speech/voice_names.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostLines = 40;  // of a file; what is looked for stands at its start
constexpr std::size_t kMostFiles = 1000;

// "language de 5"
bool TakeWord(std::string_view& line, std::string_view word) {
  if (!line.starts_with(word) || line.size() <= word.size() || line[word.size()] != ' ')
    return false;
  line.remove_prefix(word.size());
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return true;
}

/// What a file says of its voice; without a name where it is none.
InstalledVoice ReadVoice(const fs::path& file) {
  InstalledVoice voice;
  std::ifstream in(file);
  std::string line;
  for (std::size_t i = 0; i < kMostLines && std::getline(in, line); ++i) {
    std::string_view rest = line;
    while (!rest.empty() && (rest.back() == ' ' || rest.back() == '\r' || rest.back() == '\t')) {
      rest.remove_suffix(1);
    }
    if (voice.label.empty() && TakeWord(rest, "name")) voice.label = rest;
    if (voice.language.empty() && TakeWord(rest, "language")) {
      voice.language = language::Tag(rest.substr(0, rest.find(' ')));
    }
  }
  if (!voice.label.empty()) voice.name = voice.language;
  return voice;
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  fs::recursive_directory_iterator at(folder, error);
  const fs::recursive_directory_iterator end;
  for (; !error && at != end && files.size() < kMostFiles; at.increment(error)) {
    if (at->is_regular_file(error)) files.push_back(at->path());
  }
  return files;
}

bool IsPlain(const std::string& name) {
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  return name.find_first_not_of(kAllowed) == std::string::npos;
}

}  // namespace

InstalledVoices ReadInstalledVoices(const std::string& data_folder) {
  InstalledVoices installed;
  if (data_folder.empty()) return installed;
  for (const fs::path& file : FilesIn(fs::path(data_folder) / "lang")) {
    const InstalledVoice voice = ReadVoice(file);
    if (voice.name.empty()) continue;
    installed.voices.push_back(voice);
    for (const std::string& other : OtherNamesOf(voice.language)) {
      installed.voices.push_back({voice.name, other, voice.label});
    }
  }
  // The language's own voice before those of a country.
  std::sort(installed.voices.begin(), installed.voices.end(), [](const auto& a, const auto& b) {
    const auto key = [](const InstalledVoice& voice) {
      return std::tuple(language::Primary(voice.language),
                        voice.language.find('-') != std::string::npos, voice.label);
    };
    return key(a) < key(b);
  });
  for (const fs::path& file : FilesIn(fs::path(data_folder) / "voices" / "!v")) {
    if (IsPlain(file.filename().string())) installed.variants.push_back(file.filename().string());
  }
  std::sort(installed.variants.begin(), installed.variants.end());
  return installed;
}

bool HasVoiceFile(const std::string& data_folder, const std::string& name) {
  const std::string wanted = language::Tag(name);
  for (const char* folder : {"lang", "voices"}) {
    for (const fs::path& file : FilesIn(fs::path(data_folder) / folder)) {
      if (file.parent_path().filename() == "!v") continue;
      if (file.filename() == name || language::Tag(file.filename().string()) == wanted) return true;
    }
  }
  const std::vector<InstalledVoice> installed = ReadInstalledVoices(data_folder).voices;
  return std::any_of(installed.begin(), installed.end(),
                     [&](const InstalledVoice& voice) { return voice.name == wanted; });
}

}  // namespace corvane::desktop
