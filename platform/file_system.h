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
  /// The first bytes of an ordinary file, at most so many, as they are; nothing when
  /// there is none or it cannot be read.
  virtual std::string ReadText(const std::string& path, std::size_t most) const = 0;
};

}  // namespace corvane
