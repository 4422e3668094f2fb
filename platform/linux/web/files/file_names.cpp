#include "platform/linux/web/files/file_names.h"

#include <glib.h>

#include <filesystem>

#include "base/safe_name.h"

namespace corvane::desktop {

std::string FreePath(const std::string& folder, const std::string& name,
                     const std::function<bool(const std::string& path)>& taken) {
  namespace fs = std::filesystem;
  const auto ending = EndingOf(name);
  const auto is_free = [&](const fs::path& path) {
    std::error_code error;
    return !fs::exists(fs::symlink_status(path, error)) && !(taken && taken(path.string()));
  };
  fs::path path = fs::path(folder) / name;
  for (int i = 2; !is_free(path); ++i) {
    path =
        fs::path(folder) / (name.substr(0, ending) + " " + std::to_string(i) + name.substr(ending));
  }
  return path.string();
}

std::string DownloadFolder() {
  const char* folder = g_get_user_special_dir(G_USER_DIRECTORY_DOWNLOAD);
  return folder != nullptr ? folder : g_get_home_dir();
}

}  // namespace corvane::desktop
