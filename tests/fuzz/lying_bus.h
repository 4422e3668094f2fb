#pragma once

#include <gio/gio.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::fuzz {

/// An input taken as a row of choices. When it is used up, every choice is 0.
class Choices {
 public:
  explicit Choices(std::string_view input) : rest_(input) {}

  bool AtEnd() const { return rest_.empty(); }
  unsigned Byte();
  /// A choice from 0 to `limit` - 1.
  unsigned Below(unsigned limit) { return Byte() % limit; }
  /// So many bytes at most.
  std::string_view Bytes(std::size_t count);

 private:
  std::string_view rest_;
};

/// A value of a D-Bus type, as a program may send it that tells nonsense: numbers
/// at the ends of their range, loops of elements, texts of any kind. Floating.
GVariant* Lie(Choices& choices, std::string_view type);

/// The path of one of a few elements.
std::string LyingPath(Choices& choices);

}  // namespace corvane::fuzz
