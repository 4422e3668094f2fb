#pragma once

#include <dirent.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/shell_folder.h"

namespace corvane::desktop {

/// Goes through a folder of the file system, a few hundred names at a time.
class FolderReader : public ShellEnumerator {
 public:
  FolderReader(std::string path, int contents);
  bool Read() override;
  bool Next(std::string& name) override;

 private:
  struct Close {
    void operator()(DIR* folder) const { closedir(folder); }
  };
  void Take(const dirent& entry);

  const std::string path_;
  const int contents_;
  std::unique_ptr<DIR, Close> folder_;
  using Key = std::pair<bool, std::string>;  // folders first, then as people sort
  std::multimap<Key, std::string> names_;
};

}  // namespace corvane::desktop
