#pragma once

#include <cstddef>
#include <string>

#include "base/manner.h"
#include "platform/desktop.h"

namespace corvane {

/// The pages that the user keeps: link files in the Favorites folder, which the
/// user may also fill and change by other means.
class Favorites {
 public:
  Favorites(Desktop& desktop, const Manner& manner) : desktop_(desktop), manner_(manner) {}

  std::string Folder() const;
  /// Where a file in the folder leads: the address in a link file, or a saved page
  /// itself; empty when it leads nowhere.
  std::string AddressIn(const std::string& path) const;

  struct Kept {
    std::string name;
    bool is_new = false;  ///< false: the page was kept already
  };
  /// Keeps a page in a folder. RunTimeError when it cannot be written.
  Kept Add(const std::string& folder, const std::string& title, const std::string& address);
  /// Removes what lies below Favorites or History; RunTimeError for anything else.
  void Remove(const std::string& path);
  /// Gives a favourite or a folder of favourites another name, which is returned
  /// as it was taken. RunTimeError when there is one of that name.
  std::string Rename(const std::string& path, const std::string& name);

  struct Imported {
    std::size_t pages = 0;
    std::size_t left_out = 0;  ///< with an address that is never followed, or not writable
    std::string folder;        ///< its name
  };
  /// Takes over the bookmarks of a file that another browser exported, into a
  /// folder named after it. RunTimeError when it is no such file.
  Imported Import(const std::string& path);

 private:
  std::string Below(const std::string& folder, const std::string& name) const;
  std::string SpecialPath(int number) const;
  bool IsBelow(const std::string& path, const std::string& folder) const;
  std::string NewFolder(const std::string& name) const;

  Desktop& desktop_;
  const Manner& manner_;
};

}  // namespace corvane
