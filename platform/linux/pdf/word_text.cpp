#include "platform/linux/pdf/word_text.h"

#include <UTF.h>
#include <glib.h>
#include <goo/gmem.h>

#include <algorithm>

#include "platform/linux/glib/owner.h"

namespace corvane::pdf {
namespace {

constexpr char32_t kSoftHyphen = 0xAD;
constexpr std::size_t kLongestText = 2000;

void Append(std::string& text, char32_t letter) {
  char bytes[6];
  const int count = g_unichar_to_utf8(letter, bytes);
  text.append(bytes, static_cast<std::size_t>(count));
}

// Those for fonts' own signs say nothing to anybody else.
bool IsPrivate(char32_t letter) {
  return (letter >= 0xE000 && letter <= 0xF8FF) || letter >= 0xF0000;
}

bool IsReadable(char32_t letter) {
  if (letter > 0x10FFFF || (letter >= 0xD800 && letter < 0xE000) || IsPrivate(letter)) return false;
  switch (g_unichar_type(letter)) {
    case G_UNICODE_CONTROL:
    case G_UNICODE_UNASSIGNED:
    case G_UNICODE_SURROGATE:
      return false;
    case G_UNICODE_FORMAT:
      return letter == kSoftHyphen || letter == 0x200C || letter == 0x200D;
    default:
      return true;
  }
}

bool IsRightToLeft(char32_t letter) {
  return (letter >= 0x590 && letter <= 0x8FF) || (letter >= 0xFB1D && letter <= 0xFDFF) ||
         (letter >= 0xFE70 && letter <= 0xFEFF) || (letter >= 0x10800 && letter <= 0x10FFF) ||
         (letter >= 0x1E800 && letter <= 0x1EFFF);
}

char32_t FirstOf(std::string_view text) {
  return text.empty() ? 0
                      : g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
}

bool IsRightToLeft(const Word& word) { return IsRightToLeft(FirstOf(word.text)); }
bool IsLeftToRight(const Word& word) {
  const char32_t first = FirstOf(word.text);
  return g_unichar_isalnum(first) && !IsRightToLeft(first);
}

/// The letter before the hyphen at the word's end; 0 where there is none.
char32_t BeforeHyphen(const std::string& word) {
  const char* end = word.data() + word.size();
  const char* hyphen = g_utf8_find_prev_char(word.data(), end);
  if (hyphen == nullptr) return 0;
  const char32_t sign = g_utf8_get_char(hyphen);
  if (sign != '-' && sign != kSoftHyphen && sign != 0x2010) return 0;
  const char* before = g_utf8_find_prev_char(word.data(), hyphen);
  return before == nullptr ? 0 : g_utf8_get_char(before);
}

bool IsBroken(const Word& word, const Word& next) {
  return word.line != next.line && g_unichar_isalpha(BeforeHyphen(word.text)) &&
         g_unichar_islower(FirstOf(next.text));
}

}  // namespace

std::string WordText(const std::vector<char32_t>& letters) {
  const bool reversed = std::any_of(letters.begin(), letters.end(),
                                    [](char32_t each) { return IsRightToLeft(each); });
  std::string text;
  const auto add = [&](char32_t letter) {
    if (IsReadable(letter)) Append(text, letter);
  };
  if (reversed) {
    std::for_each(letters.rbegin(), letters.rend(), add);
  } else {
    std::for_each(letters.begin(), letters.end(), add);
  }
  // Ligatures and full-width letters as the letters that they stand for.
  const desktop::GText plain(
      g_utf8_normalize(text.data(), static_cast<gssize>(text.size()), G_NORMALIZE_NFKC));
  return plain ? plain.get() : text;
}

void PutInReadingOrder(std::vector<Word>& words) {
  const auto right = std::count_if(words.begin(), words.end(),
                                   [](const Word& word) { return IsRightToLeft(word); });
  if (right == 0) return;
  const auto left = std::count_if(words.begin(), words.end(),
                                  [](const Word& word) { return IsLeftToRight(word); });
  const bool from_right = right >= left;
  // The blanks lie between words, whichever way these are read.
  std::vector<bool> blanks;
  blanks.reserve(words.size());
  for (const Word& word : words) blanks.push_back(word.blank_after);
  if (from_right) {
    std::reverse(words.begin(), words.end());
    if (!blanks.empty()) std::reverse(blanks.begin(), blanks.end() - 1);
  }
  // Runs of the other direction stand as they are read in themselves.
  const auto is_other = [&](const Word& word) {
    return from_right ? IsLeftToRight(word) : IsRightToLeft(word);
  };
  for (auto start = words.begin(); start != words.end();) {
    if (!is_other(*start)) {
      ++start;
      continue;
    }
    const auto end = std::find_if_not(start, words.end(), is_other);
    std::reverse(start, end);
    start = end;
  }
  for (std::size_t i = 0; i < words.size(); ++i) words[i].blank_after = blanks[i];
}

std::string TextOf(const char32_t* letters, int count) {
  std::string text;
  bool blank = false;
  for (int i = 0; i < count && text.size() < kLongestText; ++i) {
    if (g_unichar_isspace(letters[i]) || letters[i] < ' ') {
      blank = !text.empty();
    } else if (IsReadable(letters[i]) && letters[i] != kSoftHyphen) {
      if (blank) text += ' ';
      blank = false;
      Append(text, letters[i]);
    }
  }
  return text;
}

std::string TextOf(const std::string& text) {
  Unicode* letters = nullptr;
  const int count = TextStringToUCS4(text, &letters);
  const std::vector<char32_t> copy(letters, letters + std::max(count, 0));
  gfree(letters);
  return TextOf(copy.data(), static_cast<int>(copy.size()));
}

void TakeHyphenAway(std::string& text) {
  const char* end = text.data() + text.size();
  const char* hyphen = g_utf8_find_prev_char(text.data(), end);
  if (hyphen != nullptr) text.resize(static_cast<std::size_t>(hyphen - text.data()));
}

Joint JointOf(const Word& word, const Word& next) {
  if (IsBroken(word, next)) return Joint::Broken;
  const bool goes_on = &next == &word + 1 && word.line == next.line;
  return goes_on && !word.blank_after ? Joint::Nothing : Joint::Blank;
}

std::size_t DotsOf(const Word& word) {
  return word.text.find_first_not_of('.') == std::string::npos ? word.text.size() : 0;
}

std::string Essence(std::string_view text) {
  std::string essence;
  for (const char *at = text.data(), *end = at + text.size(); at < end; at = g_utf8_next_char(at)) {
    const gunichar letter = g_utf8_get_char(at);
    if (g_unichar_isalnum(letter)) Append(essence, g_unichar_tolower(letter));
  }
  return essence;
}

}  // namespace corvane::pdf
