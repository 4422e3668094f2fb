#pragma once

#include <cstdint>
#include <string>

#include "platform/file_dialog.h"

namespace corvane {

/// Reads what a file dialog has left in its record's buffers. With several files
/// chosen the file buffer holds the folder and each name, divided by NUL in the
/// Explorer style and by a blank in the old one; otherwise one whole path.
class FileNameList {
 public:
  FileNameList(const OpenFileName& record, char folder_separator)
      : record_(record), folder_separator_(folder_separator) {}

  std::int16_t Count() const;
  /// The name at `index`, from 1 to Count.
  std::string Name(std::int16_t index) const;
  /// The folder of the file or files, without a separator at its end unless it
  /// is a root.
  std::string Folder() const;

 private:
  bool ExplorerStyle() const { return (record_.flags & kExplorerStyle) != 0; }
  char Separator() const { return ExplorerStyle() ? '\0' : ' '; }
  /// The buffer up to the NUL that ends it.
  std::string Whole() const;

  const OpenFileName& record_;
  const char folder_separator_;
};

}  // namespace corvane
