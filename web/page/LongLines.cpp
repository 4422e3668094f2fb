#include "web/page/LongLines.h"

#include <cstddef>

#include "base/text.h"

namespace corvane {
namespace {

bool HasLongLine(const std::string& text, std::size_t longest) {
  std::size_t start = 0;
  while (start < text.size()) {
    const auto end = text.find('\n', start);
    const auto stop = end == std::string::npos ? text.size() : end;
    if (stop - start > longest) return true;  // bytes: at least as many as characters
    start = stop + 1;
  }
  return false;
}

}  // namespace

std::string BreakLongLines(std::string text, int longest) {
  const auto limit = static_cast<std::size_t>(longest);
  if (!HasLongLine(text, limit)) return text;

  std::string broken;
  broken.reserve(text.size() + text.size() / limit + 1);
  std::size_t characters = 0;             // on the present line
  std::size_t blank = std::string::npos;  // where the line's last blank stands in `broken`
  std::size_t after_blank = 0;            // characters since then
  for (const char byte : text) {
    if (byte == '\n') {
      characters = after_blank = 0;
      blank = std::string::npos;
    } else if (!text::continues(byte)) {
      if (characters == limit) {
        if (byte == ' ') {  // the blank itself becomes the break
          broken += '\n';
          characters = after_blank = 0;
          blank = std::string::npos;
          continue;
        }
        if (blank != std::string::npos) {
          broken[blank] = '\n';
          characters = after_blank;
        } else {
          broken += '\n';
          characters = 0;
        }
        blank = std::string::npos;
      }
      ++characters;
      ++after_blank;
      if (byte == ' ') {
        blank = broken.size();
        after_blank = 0;
      }
    }
    broken += byte;
  }
  return broken;
}

}  // namespace corvane
