#include "speech/KeyWords.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "base/text.h"
#include "platform/control.h"
#include "speech/KeyName.h"
#include "speech/SignName.h"

namespace corvane {
namespace {

struct Word {
  char32_t number;  // of a key, or of a character
  const char* word;
};

constexpr const char* kUnnamed = "unnamed key";
constexpr int kKeypadFirst = 96;
constexpr int kKeypadLast = 111;
constexpr int kLastF = 135;  // F24

// Keys beside those that have a name in every manner.
constexpr auto kKeys = std::to_array<Word>({
    {8, "Backspace"},
    {12, "Clear"},
    {21, "Kana"},
    {25, "Kanji"},
    {28, "Convert"},
    {29, "Non Convert"},
    {41, "Select"},
    {43, "Execute"},
    {44, "Print Screen"},
    {47, "Help"},
    {91, "left Windows"},
    {92, "right Windows"},
    {93, "Menu"},
    {95, "Sleep"},
    {166, "Browser Back"},
    {167, "Browser Forward"},
    {168, "Browser Refresh"},
    {169, "Browser Stop"},
    {170, "Browser Search"},
    {171, "Browser Favorites"},
    {172, "Browser Home"},
    {173, "Mute"},
    {174, "Volume Down"},
    {175, "Volume Up"},
    {176, "Next Track"},
    {177, "Previous Track"},
    {178, "Stop Media"},
    {179, "Play"},
    {180, "Mail"},
    {181, "Media"},
    {182, "Computer"},
    {183, "Calculator"},
});

// What the keypad's keys are printed with, from its 0 on.
constexpr std::u32string_view kKeypad = U"0123456789*+,-./";

const char* Find(std::span<const Word> words, char32_t number) {
  const auto found = std::find_if(words.begin(), words.end(),
                                  [number](const Word& each) { return each.number == number; });
  return found == words.end() ? nullptr : found->word;
}

std::string CharacterWords(char32_t character) {
  const std::string written = text::character(static_cast<int>(character));
  if (const std::string_view name = SignName(written); !name.empty()) return std::string(name);
  if (character < U'a' || character > U'z') return written;
  return text::character(static_cast<int>(character - (U'a' - U'A')));
}

bool IsLetterOrDigit(int code) {
  return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

}  // namespace

std::string KeyWords(const PressedKey& key) {
  if (key.code == 0 && key.character == 0) return "";
  if (const char* name = Find(kKeys, static_cast<char32_t>(key.code))) return name;
  if (std::string name = NamedKey(key.code); !name.empty()) return name;
  if (key.code >= kKeyF1 && key.code <= kLastF) {
    return "F" + std::to_string(key.code - kKeyF1 + 1);
  }
  if (key.code >= kKeypadFirst && key.code <= kKeypadLast) {
    const char32_t printed = kKeypad.at(static_cast<std::size_t>(key.code - kKeypadFirst));
    return "keypad " + CharacterWords(key.character != 0 ? key.character : printed);
  }
  if (key.character != 0) return CharacterWords(key.character);
  return IsLetterOrDigit(key.code) ? text::character(key.code) : kUnnamed;
}

}  // namespace corvane
