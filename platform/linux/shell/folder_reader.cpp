#include "platform/linux/shell/folder_reader.h"

#include <glib.h>
#include <sys/stat.h>

#include <string_view>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr int kNamesAtATime = 256;

std::string SortKey(const char* name) {
  const GText valid(g_utf8_make_valid(name, -1));
  return Taken(g_utf8_collate_key_for_filename(valid.get(), -1));
}

}  // namespace

FolderReader::FolderReader(std::string path, int contents)
    : path_(std::move(path)), contents_(contents), folder_(opendir(path_.c_str())) {}

bool FolderReader::Read() {
  for (int i = 0; folder_ && i < kNamesAtATime; ++i) {
    const dirent* entry = readdir(folder_.get());
    if (entry) {
      Take(*entry);
    } else {
      folder_.reset();
    }
  }
  return folder_ != nullptr;
}

void FolderReader::Take(const dirent& entry) {
  const std::string_view name = entry.d_name;
  if (name == "." || name == "..") return;
  if (name.starts_with('.') && (contents_ & kContentsHidden) == 0) return;
  bool is_folder = entry.d_type == DT_DIR;
  if (entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN) {
    struct stat about {};
    is_folder =
        fstatat(dirfd(folder_.get()), entry.d_name, &about, 0) == 0 && S_ISDIR(about.st_mode);
  }
  if ((contents_ & (is_folder ? kContentsFolders : kContentsNonFolders)) == 0) return;
  names_.emplace(Key(!is_folder, SortKey(entry.d_name)), name);
}

bool FolderReader::Next(std::string& name) {
  if (names_.empty()) return false;
  name = std::move(names_.begin()->second);
  names_.erase(names_.begin());
  return true;
}

}  // namespace corvane::desktop
