#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text is UTF-8 in std::string; a character is a Unicode code point. Positions
/// count from 1 where a function says so, as the established operations do.
namespace corvane::text {

/// The number of characters.
std::size_t length(std::string_view text);

/// `count` characters from the 1-based position `start`; fewer where the text
/// ends. A start below 1 counts as 1.
std::string mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);

/// The first `count` characters.
std::string left(std::string_view text, std::size_t count);

/// The byte offset of the character at the 0-based position; the size when past
/// the end. For walking a long text without counting it again and again.
std::size_t offset_of(std::string_view text, std::size_t position, std::size_t from_offset = 0);

/// The text with every byte that is not part of valid UTF-8 replaced by U+FFFD.
std::string valid(std::string_view text);

/// `text` with every occurrence of `from` (not empty) replaced by `to`.
std::string replace_all(std::string text, std::string_view from, std::string_view to);

/// The character with this code point; empty for 0 and for what is none.
std::string character(int code_point);

/// Whether the byte goes on with a character that began before it.
constexpr bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Takes the character at the front of a text (not empty) off it; U+FFFD for a byte that
/// begins none.
char32_t take_character(std::string_view& text);

/// ASCII letters in lower case, everything else unchanged.
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
std::string lower(std::string_view text);

/// Equality without regard to the case of ASCII letters.
bool same_ignoring_case(std::string_view a, std::string_view b);

/// The same of the text's beginning.
bool starts_ignoring_case(std::string_view text, std::string_view start);

/// The text without the blanks at both its ends.
std::string_view trimmed(std::string_view text, std::string_view blanks = " \t\r\n");

}  // namespace corvane::text
