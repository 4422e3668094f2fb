#include "platform/linux/gtk/text_pane/rtf_text.h"

#include <iconv.h>

#include <array>
#include <utility>

#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr char32_t kUnknown = 0xFFFD;
constexpr std::size_t kMostBytes = 4096;  // converted in one go

// Bytes of a code page as UTF-8; empty when the system does not know the page.
std::string Convert(const std::string& bytes, int code_page) {
  const auto page = "CP" + std::to_string(code_page);
  const iconv_t converter = iconv_open("UTF-8", page.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) return {};
  std::string input = bytes;
  char* in = input.data();
  std::size_t in_left = input.size();
  std::string result;
  while (in_left > 0) {
    std::array<char, 1024> chunk{};
    char* out = chunk.data();
    std::size_t out_left = chunk.size();
    const std::size_t left_before = in_left;
    const bool stuck =
        iconv(converter, &in, &in_left, &out, &out_left) == static_cast<std::size_t>(-1);
    result.append(chunk.data(), chunk.size() - out_left);
    if (stuck && in_left > 0 && (out_left == chunk.size() || in_left == left_before)) {
      result += "\xEF\xBF\xBD";
      ++in;
      --in_left;
    }
  }
  iconv_close(converter);
  return result;
}

}  // namespace

void RtfText::Byte(unsigned char byte, int code_page) {
  FlushSurrogate();
  if (byte < 0x80 && bytes_.empty()) {
    text_ += static_cast<char>(byte == 0 ? ' ' : byte);
    return;
  }
  if (code_page != code_page_ || bytes_.size() >= kMostBytes) FlushBytes();
  code_page_ = code_page;
  bytes_ += static_cast<char>(byte);
}

void RtfText::FlushBytes() {
  if (bytes_.empty()) return;
  const auto bytes = std::exchange(bytes_, {});
  auto converted = Convert(bytes, code_page_);
  if (converted.empty()) converted = Convert(bytes, 1252);
  text_ += converted;
}

void RtfText::FlushSurrogate() {
  if (std::exchange(surrogate_, u'\0') != 0) Append(kUnknown);
}

void RtfText::Unit(std::uint16_t unit) {
  FlushBytes();
  const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
  if (low && surrogate_ != 0) {
    const char32_t high = std::exchange(surrogate_, u'\0');
    Append(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00U));
    return;
  }
  FlushSurrogate();
  if (unit >= 0xD800 && unit <= 0xDBFF) {
    surrogate_ = static_cast<char16_t>(unit);
    return;
  }
  Append(low || unit == 0 ? kUnknown : unit);
}

void RtfText::Character(char32_t character) {
  FlushBytes();
  FlushSurrogate();
  Append(character);
}

void RtfText::Append(char32_t character) { text_ += text::character(static_cast<int>(character)); }

std::string RtfText::Take() {
  FlushBytes();
  FlushSurrogate();
  return std::exchange(text_, {});
}

}  // namespace corvane::desktop
