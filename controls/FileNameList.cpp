#include "controls/FileNameList.h"

#include <algorithm>

namespace corvane {

std::string FileNameList::Whole() const { return record_.file.substr(0, record_.file.find('\0')); }

std::int16_t FileNameList::Count() const {
  if ((record_.flags & kAllowMultiSelect) == 0) return 1;
  if (!record_.file_title.empty() && record_.file_title.front() != '\0') return 1;
  const std::string& file = record_.file;
  const auto first =
      std::min(file.size(), static_cast<std::size_t>(std::max<int>(record_.file_offset, 0)));
  const auto names = file.begin() + static_cast<std::ptrdiff_t>(first);
  if (!ExplorerStyle()) {
    const std::string whole = Whole();
    if (first >= whole.size()) return 1;
    return static_cast<std::int16_t>(
        1 + std::count(whole.begin() + static_cast<std::ptrdiff_t>(first), whole.end(), ' '));
  }
  const auto end = file.find(std::string(2, '\0'), first);
  if (end == std::string::npos) return 0;
  return static_cast<std::int16_t>(
      1 + std::count(names, file.begin() + static_cast<std::ptrdiff_t>(end), '\0'));
}

std::string FileNameList::Name(std::int16_t index) const {
  if (Count() == 1) {
    const std::string whole = Whole();
    const auto last = whole.rfind(folder_separator_);
    return last == std::string::npos ? whole : whole.substr(last + 1);
  }
  auto start = static_cast<std::size_t>(record_.file_offset);
  for (int i = 1; i < index; ++i) start = record_.file.find(Separator(), start) + 1;
  const char ends[] = {Separator(), '\0'};
  return record_.file.substr(start,
                             record_.file.find_first_of(std::string(ends, 2), start) - start);
}

std::string FileNameList::Folder() const {
  if (Count() != 1) return record_.file.substr(0, record_.file.find(Separator()));
  const std::string whole = Whole();
  const auto last = whole.rfind(folder_separator_);
  if (last == std::string::npos) return "";
  return whole.substr(0, std::max<std::size_t>(last, 1));
}

}  // namespace corvane
