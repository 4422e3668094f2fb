#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane::desktop {

/// Reads a text of any length and origin as pieces that a synthesizer may be
/// given: valid UTF-8 without control, formatting and private-use characters,
/// every run of blanks one blank (a blank line stays one), at most `most`
/// characters each. Cuts behind a sentence where it can, else at a blank, never
/// inside a character. Reads only as far as the piece needs, so that a long text
/// starts at once.
class TextPieces {
 public:
  static constexpr std::size_t kMost = 400;

  /// `text` must stay alive and unchanged while pieces are read.
  explicit TextPieces(std::string_view text, std::size_t most = kMost) : rest_(text), most_(most) {}

  /// Puts the next piece into `piece`; false at the end of the text.
  bool Next(std::string& piece);

 private:
  std::string_view rest_;
  std::size_t most_;
};

/// What a text is called that has no sound of its own: a lone blank, line end or
/// editing character. Empty for every other text.
std::string_view NameOfSilence(std::string_view text);

/// Whether a text is a few marks without a letter or digit, as when the caret
/// passes a comma: its marks must then be named or nothing would be heard.
bool IsOnlyMarks(std::string_view text);

/// Whether a text is one mark.
bool IsLoneMark(std::string_view text);

/// The text with blanks between digits, so that each is read by itself.
std::string WithLoneDigits(std::string_view text);

/// Whether a text ends with the mark of a sentence's end, quotes and brackets behind it
/// left aside.
bool EndsSentence(std::string_view text);

}  // namespace corvane::desktop
