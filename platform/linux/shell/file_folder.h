#pragma once

#include <string>

#include "platform/linux/store/local_file_system.h"
#include "platform/shell_folder.h"
#include "web/library/LinkFile.h"

namespace corvane::desktop {

/// One folder of the file system.
class FileFolder : public ShellFolder {
 public:
  /// In the history an item's path is the address in it.
  FileFolder(std::string path, bool is_history);

  std::unique_ptr<ShellEnumerator> EnumObjects(int contents) override;
  std::optional<std::uint32_t> GetAttributesOf(const std::string& name,
                                               std::uint32_t mask) override;
  std::string GetDisplayNameOf(const std::string& name) override;
  std::string GetPathOf(const std::string& name) override;

 private:
  std::string Below(const std::string& name) const;
  LinkFile Read(const std::string& name) const;

  const std::string path_;
  const bool is_history_;
  const LocalFileSystem files_;
};

}  // namespace corvane::desktop
