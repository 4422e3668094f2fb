#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::desktop {

/// Collects the characters of an RTF document, however they are written: plain
/// bytes and \'hh in a code page, \u as UTF-16 units. Unpaired surrogates and
/// bytes that the code page does not have become U+FFFD.
class RtfText {
 public:
  void Byte(unsigned char byte, int code_page);
  void Unit(std::uint16_t unit);
  void Character(char32_t character);
  /// What has been collected, as UTF-8; the collection starts anew.
  std::string Take();

 private:
  void FlushBytes();
  void FlushSurrogate();
  void Append(char32_t character);

  std::string text_;
  std::string bytes_;  // waiting for the rest of a double-byte character
  int code_page_ = 0;
  char16_t surrogate_ = 0;
};

}  // namespace corvane::desktop
