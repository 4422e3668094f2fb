#include "platform/linux/speech/missing_voices.h"

#include <filesystem>
#include <string_view>

#include "base/language.h"
#include "platform/linux/speech/installed_voices.h"
#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {
namespace {

// The names of espeak-ng's voices that speak with MBROLA's sounds, which are packages of
// their own.
constexpr std::string_view kMbrola = "mb-";

bool IsThere(const std::string& voice, const std::string& data_folder,
             const std::string& mbrola_folder) {
  if (!HasVoiceFile(data_folder, voice)) return false;
  if (!voice.starts_with(kMbrola)) return true;
  return std::filesystem::exists(mbrola_folder + "/" + voice.substr(kMbrola.size()));
}

std::string PackageOf(const std::string& voice) {
  if (!voice.starts_with(kMbrola)) return "espeak-ng-data";
  return "mbrola-" + voice.substr(kMbrola.size());
}

}  // namespace

std::vector<std::string> MissingVoices(const CharacterFile& character,
                                       const std::string& data_folder,
                                       const std::string& mbrola_folder) {
  std::vector<std::string> sentences;
  if (data_folder.empty()) return sentences;
  const auto look = [&](const std::string& named, const std::string& language) {
    const std::string voice = named.substr(0, named.find('+'));
    if (voice.empty() || IsThere(voice, data_folder, mbrola_folder)) return;
    sentences.push_back("The voice " + voice + (language.empty() ? "" : " for " + language) +
                        " is not installed. Its package is " + PackageOf(voice) + ".");
  };
  look(character.voice, "");
  for (const auto& [language, voice] : character.languages) look(voice, language::Name(language));
  return sentences;
}

}  // namespace corvane::desktop
