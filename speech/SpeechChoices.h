#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "platform/voice.h"

namespace corvane {

/// Which marks of a text are named. A mark that is said alone is named always.
enum class Punctuation { None, Some, Most, All };

/// How a capital letter is told from a small one.
enum class Capitals { Not, ByPitch, ByWord };

/// What becomes of words in a language.
enum class LanguageHeard { AsThePageSays, InOwnVoice, Not };

/// What the user has chosen for one language.
struct LanguageVoice {
  LanguageHeard heard = LanguageHeard::AsThePageSays;
  std::string voice = {};         ///< as InstalledVoice has it; empty: the usual one
  std::string variant = {};       ///< empty: the usual one
  std::string server_voice = {};  ///< the speech server's, in the same way

  /// The one of who makes the sound.
  std::string& VoiceOf(SpeechMaker maker) {
    return maker == SpeechMaker::BuiltIn ? voice : server_voice;
  }

  bool operator==(const LanguageVoice&) const = default;
};

/// How all that is said is to sound. The members' own values are what nobody has chosen.
/// Read by whoever speaks; it changes while the program runs when the user chooses
/// otherwise.
struct SpeechChoices {
  static constexpr int kSlowest = 80;  ///< words a minute
  static constexpr int kFastest = 900;

  int speed = 150;   ///< words a minute of the rate menu's middle
  int pitch = 50;    ///< of the pitch menu's middle, 0 to 100
  int range = 50;    ///< how far the pitch goes up and down in a sentence, 0 to 100
  int volume = 100;  ///< 10 to 100
  Punctuation punctuation = Punctuation::Some;
  Capitals capitals = Capitals::Not;
  bool digits = false;  ///< one by one
  int page_level = 20;  ///< percent: how loud pages are while something is said, 0 to 100
  SpeechMaker maker = SpeechMaker::BuiltIn;
  bool sounds = false;  ///< in place of the words for that a page is on its way, and has come
  std::map<std::string, LanguageVoice, std::less<>> languages = {};  ///< by language::Primary

  /// A step of the rate menu, in words a minute, as it is around the chosen speed.
  int Around(int menu_speed) const {
    return menu_speed == 0 ? 0
                           : std::clamp(menu_speed + speed - SpeechChoices().speed, 1, kFastest);
  }
  /// The same of the pitch menu, on its scale.
  int AroundPitch(int menu_pitch) const {
    return menu_pitch == 0 ? 0 : std::max(menu_pitch + pitch - SpeechChoices().pitch, 1);
  }
  const LanguageVoice& Of(std::string_view language) const {
    static const LanguageVoice kUsual;
    const auto at = languages.find(language);
    return at == languages.end() ? kUsual : at->second;
  }

  bool operator==(const SpeechChoices&) const = default;
};

}  // namespace corvane
