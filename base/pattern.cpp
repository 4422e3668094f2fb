#include "base/pattern.h"

#include <optional>
#include <string>

#include "base/text.h"

namespace corvane::pattern {
namespace {

// The characters of a text, ASCII letters in lower case.
std::u32string characters(std::string_view text) {
  const std::string lower = text::lower(text);
  std::u32string all;
  for (std::string_view rest = lower; !rest.empty();) all += text::take_character(rest);
  return all;
}

// Whether one character fits the pattern's element at `at`; moves `at` behind it.
bool fits_one(char32_t character, const std::u32string& pattern, std::size_t& at) {
  const char32_t element = pattern[at++];
  if (element == U'?') return true;
  if (element == U'#') return character >= U'0' && character <= U'9';
  if (element != U'[') return character == element;
  const auto end = pattern.find(U']', at);
  if (end == std::u32string::npos) return false;
  const bool inverted = pattern[at] == U'!';
  if (inverted) ++at;
  bool listed = false;
  while (at < end) {
    const bool range = at + 2 < end && pattern[at + 1] == U'-';
    const char32_t last = pattern[range ? at + 2 : at];
    listed = listed || (character >= pattern[at] && character <= last);
    at += range ? 3 : 1;
  }
  at = end + 1;
  return listed != inverted;
}

}  // namespace

// Only the last run has to be tried again with more characters: what fitted
// before it need not be looked at twice.
bool matches(std::string_view text, std::string_view pattern) {
  const std::u32string wanted = characters(pattern);
  const std::u32string all = characters(text);
  std::size_t here = 0;
  std::size_t at = 0;
  std::optional<std::size_t> run;  // behind the last `*`
  std::size_t run_end = 0;         // in the text
  while (here < all.size()) {
    if (at < wanted.size() && wanted[at] == U'*') {
      run = ++at;
      run_end = here;
    } else if (std::size_t next = at; at < wanted.size() && fits_one(all[here], wanted, next)) {
      at = next;
      ++here;
    } else if (run) {
      at = *run;
      here = ++run_end;
    } else {
      return false;
    }
  }
  while (at < wanted.size() && wanted[at] == U'*') ++at;
  return at == wanted.size();
}

}  // namespace corvane::pattern
