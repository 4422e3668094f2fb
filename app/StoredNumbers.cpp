#include "app/StoredNumbers.h"

#include <utility>

#include "base/error.h"
#include "base/number.h"

namespace corvane {
namespace {

constexpr const char* kWindow = "Corvane";
constexpr const char* kSection = "Settings";

}  // namespace

template <class Convert, class Usable>
auto StoredNumbers::Read(const std::string& application, const std::string& key,
                         const std::string& fallback, Convert convert, Usable usable) {
  try {
    const auto value = convert(store_.GetSetting(application, kSection, key, fallback));
    if (usable(value)) return value;
  } catch (const RunTimeError& error) {
    // A number too large for its type is a number all the same.
    if (!manner_.today && error.Number() != kErrOverflow) throw;
  }
  Note(key);
  return convert(fallback);
}

float StoredNumbers::Twips(const std::string& key, const std::string& fallback, Range range) {
  return Read(kWindow, key, fallback, number::to_single,
              [range](float value) { return value >= range.least && value <= range.most; });
}

int StoredNumbers::Choice(const std::string& application, const std::string& key,
                          const std::string& fallback, const MenuArray& menu) {
  return Read(application, key, fallback, number::to_integer, [&menu](int index) {
    return index >= 0 && index < menu.Count() && menu(index).Caption() != "-";
  });
}

void StoredNumbers::Note(const std::string& key) {
  if (told_.insert(key).second) noted_.push_back(key);
}

std::string StoredNumbers::TakeReport() {
  const std::vector<std::string> keys = std::exchange(noted_, {});
  if (keys.empty()) return "";
  if (keys.size() == 1) {
    return "The stored setting " + keys.front() + " cannot be used. Its default holds.";
  }
  std::string list;
  for (const std::string& key : keys) list += (list.empty() ? "" : ", ") + key;
  return "The stored settings " + list + " cannot be used. Their defaults hold.";
}

}  // namespace corvane
