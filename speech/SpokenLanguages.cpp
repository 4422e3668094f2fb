#include "speech/SpokenLanguages.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"

namespace corvane {
namespace {

/// A range of letters, and the language that reads them where none is said that does.
struct Script {
  char32_t first;
  char32_t last;
  std::string_view languages;  ///< that are written so, blanks around each; the first reads
};

// In order. Of letters that are in no row nothing can be told.
constexpr std::string_view kGreek = " el grc ";
constexpr std::string_view kCyrillic = " ru uk be bg mk sr bs kk ky tt tg mn ba cv ";
constexpr std::string_view kArabic = " ar fa ur ps ug sd ks ku ckb ";
constexpr std::string_view kHan = " zh cmn yue hak nan wuu lzh ja ko ";
constexpr std::string_view kJapanese = " ja ";
constexpr std::string_view kKorean = " ko ";
constexpr std::string_view kLatin = "";  // nearly everybody
constexpr std::array kScripts = {
    Script{'A', 'Z', kLatin},           Script{'a', 'z', kLatin},
    Script{0x00C0, 0x024F, kLatin},     Script{0x0370, 0x03FF, kGreek},
    Script{0x0400, 0x052F, kCyrillic},  Script{0x0531, 0x058F, " hy hyw "},
    Script{0x05D0, 0x05F4, " he yi "},  Script{0x0600, 0x06FF, kArabic},
    Script{0x0750, 0x077F, kArabic},    Script{0x0900, 0x097F, " hi mr ne kok sa bpy "},
    Script{0x0980, 0x09FF, " bn as "},  Script{0x0A00, 0x0A7F, " pa "},
    Script{0x0A80, 0x0AFF, " gu "},     Script{0x0B00, 0x0B7F, " or "},
    Script{0x0B80, 0x0BFF, " ta "},     Script{0x0C00, 0x0C7F, " te "},
    Script{0x0C80, 0x0CFF, " kn "},     Script{0x0D00, 0x0D7F, " ml "},
    Script{0x0D80, 0x0DFF, " si "},     Script{0x0E00, 0x0E7F, " th "},
    Script{0x1000, 0x109F, " my shn "}, Script{0x10A0, 0x10FF, " ka "},
    Script{0x1100, 0x11FF, kKorean},    Script{0x1200, 0x139F, " am ti "},
    Script{0x1E00, 0x1EFF, kLatin},     Script{0x1F00, 0x1FFF, kGreek},
    Script{0x3040, 0x30FF, kJapanese},  Script{0x3400, 0x4DBF, kHan},
    Script{0x4E00, 0x9FFF, kHan},       Script{0xAC00, 0xD7AF, kKorean},
    Script{0xF900, 0xFAFF, kHan},       Script{0xFF66, 0xFF9F, kJapanese},
    Script{0x20000, 0x323AF, kHan},
};

const Script* ScriptOf(char32_t c) {
  const auto* const behind =
      std::upper_bound(kScripts.begin(), kScripts.end(), c,
                       [](char32_t letter, const Script& script) { return letter < script.first; });
  if (behind == kScripts.begin()) return nullptr;
  const Script& script = *std::prev(behind);
  return c <= script.last ? &script : nullptr;
}

bool Writes(std::string_view language, std::string_view languages) {
  const std::string name = " " + std::string(language::Primary(language)) + " ";
  return languages.find(name) != std::string_view::npos;
}

/// Whether a language is written in other letters than most of Europe's, and in no others.
bool HasItsOwnLetters(std::string_view language) {
  constexpr std::string_view kInBoth = " sr bs kk tt ku mn ";
  if (Writes(language, kInBoth) || language.find("-latn") != std::string_view::npos) return false;
  return std::any_of(kScripts.begin(), kScripts.end(), [&](const Script& script) {
    return script.languages != kLatin && Writes(language, script.languages);
  });
}

std::string_view FirstOf(std::string_view languages) {
  return languages.substr(1, languages.find(' ', 1) - 1);
}

/// Writes a text's pieces by their letters.
class Splitter {
 public:
  explicit Splitter(std::vector<LanguageRun>& runs) : runs_(runs) {}

  void Add(const LanguageRun& run) {
    // The voice of one's own language reads it as it is written elsewhere, too.
    const bool is_own = language::Primary(run.language) == kOwnLanguage;
    said_ = run.language.empty() || is_own ? std::string(kOwnLanguage) : run.language;
    is_japanese_ = ScriptIn(run.text, kJapanese);
    const std::string_view rest = run.text;
    std::size_t start = 0;  // of the piece in the run
    std::string language;   // of the piece; empty as long as it has no letters
    int letters = 0;
    const auto end = [&](std::size_t at) {
      if (at > start) Put(run.text.substr(start, at - start), language, letters);
      start = at;
      letters = 0;
    };
    for (std::size_t at = 0; at < rest.size();) {
      const std::size_t next = text::offset_of(rest, 1, at);
      const char32_t c = CodeOf(rest.substr(at, next - at));
      if (const Script* script = ScriptOf(c)) {
        const std::string its(LanguageOf(*script));
        if (!language.empty() && its != language) end(at);
        language = its;
        ++letters;
      }
      at = next;
    }
    end(rest.size());
  }

 private:
  static char32_t CodeOf(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return first;
    char32_t code = first & (0xFF >> (character.size() + 1));
    for (std::size_t i = 1; i < character.size(); ++i) {
      code = code << 6 | (static_cast<unsigned char>(character[i]) & 0x3F);
    }
    return code;
  }
  static bool ScriptIn(std::string_view words, std::string_view languages) {
    for (std::size_t at = 0; at < words.size();) {
      const std::size_t next = text::offset_of(words, 1, at);
      const Script* script = ScriptOf(CodeOf(words.substr(at, next - at)));
      if (script != nullptr && script->languages == languages) return true;
      at = next;
    }
    return false;
  }
  std::string_view LanguageOf(const Script& script) const {
    if (script.languages == kLatin) return HasItsOwnLetters(said_) ? kOwnLanguage : said_;
    if (Writes(said_, script.languages)) return said_;
    // Chinese characters beside syllable signs are Japanese.
    if (script.languages == kHan && is_japanese_) return "ja";
    return FirstOf(script.languages);
  }
  // A lone letter of other letters is a sign (a unit, a variable) that every voice names.
  void Put(const std::string& words, const std::string& language, int letters) {
    const bool alone = letters == 1 && language != said_ && language != "ja" &&
                       !Writes(language, kHan) && !Writes(language, kKorean);
    const std::string its = alone || language.empty() ? said_ : language;
    const bool speaks = letters > 0 || words.find_first_of("0123456789") != std::string::npos;
    if (!runs_.empty() && (runs_.back().language == its || !speaks)) {
      runs_.back().text += words;
      return;
    }
    // Marks in front of the first words go with them.
    if (!runs_.empty() && mute_) {
      runs_.back().text += words;
      runs_.back().language = its;
    } else {
      runs_.push_back({words, its});
    }
    mute_ = !speaks;
  }

  std::vector<LanguageRun>& runs_;
  std::string said_;
  bool is_japanese_ = false;
  bool mute_ = false;  // what has been put so far says nothing
};

}  // namespace

std::vector<LanguageRun> SpokenRuns(std::string_view text) {
  std::vector<LanguageRun> runs;
  Splitter splitter(runs);
  for (const LanguageRun& run : language::Runs(text)) splitter.Add(run);
  return runs;
}

}  // namespace corvane
