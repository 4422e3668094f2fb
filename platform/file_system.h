#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

/// Files that the product reads itself. Paths and texts are UTF-8.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// The folder of the program's executable, without a trailing separator
  /// unless it is the root.
  virtual std::string ProgramFolder() const = 0;
  /// The folder that relative paths start from; empty when it is gone.
  virtual std::string CurrentFolder() const = 0;
  /// The character between a path's parts.
  virtual char Separator() const = 0;
  virtual bool Exists(const std::string& path) const = 0;
  /// The file's lines without their ends. RunTimeError when it cannot be read.
  virtual std::vector<std::string> ReadLines(const std::string& path) const = 0;
  /// Writes the whole file, replacing one of that name. RunTimeError on failure.
  virtual void Write(const std::string& path, const std::string& content) = 0;
  /// One value of a profile (INI) file; section and key without regard to case.
  /// At most `size` - 1 characters; empty when file, section or key is absent.
  virtual std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                              std::size_t size, const std::string& file) const = 0;
};

}  // namespace corvane
