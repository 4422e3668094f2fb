#pragma once

#include <string_view>

namespace corvane::profile {

/// The lines of a profile (INI) text that say something, one after the other: sections'
/// beginnings and assignments, blanks around their parts trimmed. Comments (";") and all
/// other lines are passed over, line ends may be of any kind and a byte order mark may
/// come first.
class Reader {
 public:
  explicit Reader(std::string_view content);
  /// Goes to the next one; false at the end.
  bool Next();

  bool opens_section = false;
  std::string_view section;  ///< the present one; empty: none, or one without an end
  std::string_view key;
  std::string_view value;

 private:
  std::string_view rest_;
};

/// One value of a profile (INI) text as the reader that made the format finds it:
/// the first section and key of that name without regard to case, one pair of quotes
/// around the value taken off.
std::string_view value(std::string_view content, std::string_view section, std::string_view key);

}  // namespace corvane::profile
