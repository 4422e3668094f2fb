#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// Where a text buffer holds breaks that the text itself does not have. A view
/// lays out a paragraph as a whole, which takes seconds for one of a megabyte
/// (0.18 s for 200 kB); broken every few thousand characters, the same text is
/// laid out piece by piece in the background (3 ms at most in one go, 2 MB).
/// A break is the character U+2029 in the buffer; the text never has that one.
///
/// Offsets count the buffer's characters, positions those of the text.
class SoftBreaks {
 public:
  /// Text as the buffer takes it at a place that has `before` characters of its
  /// paragraph in front: valid UTF-8, line ends as line feeds, long paragraphs
  /// broken, at a blank where there is one.
  static std::string Prepare(std::string_view text, int before);
  /// The text without breaks.
  static std::string Strip(std::string text);

  /// `length` characters have come in at `offset`; `bytes` is their text.
  void Inserted(int offset, int length, std::string_view bytes);
  void Erased(int start, int end);

  int Count() const { return static_cast<int>(offsets_.size()); }
  int PositionOf(int offset) const;
  /// The offset of a position; at a break the one behind it.
  int OffsetOf(int position) const;

 private:
  std::vector<int> offsets_;  // rising
};

}  // namespace corvane::desktop
