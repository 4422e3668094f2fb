#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane::desktop {

/// A FileSystem on the machine's files. Texts that are not UTF-8 come out with
/// U+FFFD where they are not.
class LocalFileSystem : public FileSystem {
 public:
  /// The program's folder is that of the running executable.
  LocalFileSystem();
  explicit LocalFileSystem(std::string program_folder);

  std::string ProgramFolder() const override { return program_folder_; }
  std::string CurrentFolder() const override;
  char Separator() const override { return '/'; }
  bool Exists(const std::string& path) const override;
  std::vector<std::string> ReadLines(const std::string& path) const override;
  void Write(const std::string& path, const std::string& content) override;
  std::string ReadText(const std::string& path, std::size_t most) const override;

 private:
  const std::string program_folder_;
};

}  // namespace corvane::desktop
