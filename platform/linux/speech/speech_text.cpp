#include "platform/linux/speech/speech_text.h"

#include <glib.h>

#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMostMarks = 32;  // bytes of a text whose marks are named

bool Between(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

bool IsLineEnd(char32_t c) { return c == '\n' || c == 0x2029; }

bool IsBlank(char32_t c) {
  return Between(c, 0x09, 0x0D) || c == ' ' || c == 0x85 || c == 0xA0 || c == 0x1680 ||
         Between(c, 0x2000, 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
         c == 0x3000;
}

/// Characters that are nothing to speak. espeak-ng takes U+0001 as the start of a
/// command and uses private characters inside.
bool IsUnspeakable(char32_t c) {
  return c < 0x20 || Between(c, 0x7F, 0x9F) || c == 0xAD || c == 0x200B || c == 0x200E ||
         c == 0x200F || Between(c, 0x202A, 0x202E) || Between(c, 0x2060, 0x206F) ||
         Between(c, 0xE000, 0xF8FF) || c == 0xFEFF || (c & 0xFFFE) == 0xFFFE ||
         Between(c, 0xE0000, 0xE0FFF) || c >= 0xF0000;
}

/// Marks that belong to the character before them.
bool IsJoined(char32_t c) {
  return Between(c, 0x300, 0x36F) || c == 0x200C || c == 0x200D || Between(c, 0xFE00, 0xFE0F) ||
         Between(c, 0x20D0, 0x20FF) || Between(c, 0x1F3FB, 0x1F3FF);
}

bool EndsSentence(char32_t c) {
  return c == '.' || c == '!' || c == '?' || c == ':' || c == ';' || c == 0x2026;
}

/// Ends a sentence in scripts that put no blank behind it.
bool EndsWideSentence(char32_t c) { return c == 0x3002 || c == 0xFF01 || c == 0xFF1F; }

/// A place where a piece may end: so much of the piece, and what follows it.
struct Cut {
  std::size_t length = 0;
  std::string_view rest;
};

}  // namespace

std::string_view NameOfSilence(std::string_view text) {
  if (text == " " || text == "\u00A0") return "space";
  if (text == "\t") return "tab";
  if (text == "\n" || text == "\r" || text == "\r\n") return "new line";
  if (text == "\b") return "backspace";
  return {};
}

bool IsOnlyMarks(std::string_view text) {
  if (text.size() > kMostMarks) return false;
  while (!text.empty()) {
    if (g_unichar_isalnum(text::take_character(text))) return false;
  }
  return true;
}

bool IsLoneMark(std::string_view text) {
  if (text.empty() || g_unichar_isalnum(text::take_character(text))) return false;
  return text.empty();
}

std::string WithLoneDigits(std::string_view text) {
  std::string apart;
  bool digit_before = false;
  while (!text.empty()) {
    const std::string_view here = text;
    const char32_t c = text::take_character(text);
    const bool is_digit = g_unichar_isdigit(c) != FALSE;
    if (is_digit && digit_before) apart += ' ';
    apart += here.substr(0, here.size() - text.size());
    digit_before = is_digit;
  }
  return apart;
}

bool EndsSentence(std::string_view text) {
  const std::size_t last = text.find_last_not_of(" \n\"')]");
  return last != std::string_view::npos &&
         std::string_view(".!?").find(text[last]) != std::string_view::npos;
}

bool TextPieces::Next(std::string& piece) {
  piece.clear();
  std::size_t count = 0;
  Cut sentence;
  Cut blank;
  Cut character;
  char32_t before = 0;
  while (!rest_.empty()) {
    const std::string_view here = rest_;
    const char32_t c = text::take_character(rest_);
    if (IsBlank(c)) {
      if (piece.empty()) continue;
      bool blank_line = false;
      bool line_end = IsLineEnd(c);
      while (!rest_.empty()) {
        std::string_view next = rest_;
        const char32_t follower = text::take_character(next);
        if (!IsBlank(follower) && !IsUnspeakable(follower)) break;
        blank_line = blank_line || (line_end && IsLineEnd(follower));
        line_end = line_end || IsLineEnd(follower);
        rest_ = next;
      }
      if (rest_.empty()) break;
      blank = {piece.size(), rest_};
      if (blank_line || EndsSentence(before)) sentence = blank;
      if (count >= most_) {
        character = blank;
        break;
      }
      piece += blank_line ? "\n\n" : " ";
      ++count;
      before = ' ';
      continue;
    }
    if (IsUnspeakable(c)) continue;
    // A few marks may go past the limit with their letter; endless ones may not.
    if (count >= most_ && (!IsJoined(c) || count >= most_ + 16)) {
      character = {piece.size(), here};
      break;
    }
    piece += text::character(static_cast<int>(c));
    ++count;
    if (EndsWideSentence(c)) sentence = {piece.size(), rest_};
    before = c;
  }
  if (character.length > 0) {  // more follows: choose the best place
    const Cut cut = sentence.length > 0 ? sentence : blank.length > 0 ? blank : character;
    piece.resize(cut.length);
    rest_ = cut.rest;
  }
  return !piece.empty();
}

}  // namespace corvane::desktop
