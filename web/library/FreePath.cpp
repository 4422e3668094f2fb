#include "web/library/FreePath.h"

#include <filesystem>

#include "base/safe_name.h"

namespace corvane {

std::string FreePath(const std::string& folder, const std::string& name,
                     const std::function<bool(const std::string& path)>& taken) {
  namespace fs = std::filesystem;
  const auto ending = EndingOf(name);
  for (int number = 1;; ++number) {
    const std::string numbered = Numbered(name.substr(0, ending), number) + name.substr(ending);
    std::string path = (fs::path(folder) / numbered).string();
    std::error_code error;
    if (!fs::exists(fs::symlink_status(path, error)) && !(taken && taken(path))) return path;
  }
}

}  // namespace corvane
