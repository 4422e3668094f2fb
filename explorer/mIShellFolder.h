#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/shell_folder.h"

/// Plumbing over the shell's folders: places taken apart and put together, and
/// what the shell says of one place.
namespace corvane::mIShellFolder {

bool IsDesktop(const ItemIdList& place);
/// The place one step below `parent`.
ItemIdList Concatenated(const ItemIdList& parent, const std::string& name);
/// The place above; the desktop is above itself.
ItemIdList ParentOf(const ItemIdList& place);
/// The last name of a place; empty for the desktop.
std::string LastItem(const ItemIdList& place);

/// The place that is meant by a special folder's number or by a path; none when
/// there is no such place.
std::optional<ItemIdList> PlaceOf(Shell& shell, const std::string& path);
/// The folder above a place: the one that knows the place's name and attributes.
std::shared_ptr<ShellFolder> ParentFolder(Shell& shell, const ItemIdList& place);

}  // namespace corvane::mIShellFolder
