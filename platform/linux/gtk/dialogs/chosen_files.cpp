#include "platform/linux/gtk/dialogs/chosen_files.h"

#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kEndOfList = 2;  // two NUL

void PutInto(std::string& buffer, std::string text, int capacity) {
  text.resize(std::max(text.size(), static_cast<std::size_t>(std::max(capacity, 0))), '\0');
  buffer = std::move(text);
}

std::string Shown(const std::filesystem::path& path) {
  return Taken(g_filename_display_basename(path.c_str()));
}

std::string RefusalToOpen(const std::string& path, bool there, bool must_exist) {
  if (!there) return must_exist ? Shown(path) + " was not found" : "";
  return access(path.c_str(), R_OK) == 0 ? "" : Shown(path) + " cannot be read";
}

std::string RefusalToSave(const std::string& path, bool there) {
  std::error_code error;
  const auto folder = std::filesystem::path(path).parent_path();
  if (!std::filesystem::is_directory(folder, error)) {
    return "The folder " + Shown(folder) + " was not found";
  }
  const bool may = access(there ? path.c_str() : folder.c_str(), W_OK) == 0;
  return may ? "" : Shown(path) + " cannot be written there";
}

}  // namespace

std::string Refusal(FileDialog::Kind kind, std::uint32_t flags,
                    const std::vector<std::string>& paths) {
  const bool folder = kind == FileDialog::Kind::Folder;
  if (paths.empty()) return folder ? "No folder is chosen" : "No file is chosen";
  for (const auto& path : paths) {
    std::error_code error;
    const bool is_folder = std::filesystem::is_directory(path, error);
    if (folder && !is_folder) return Shown(path) + " is no folder";
    if (folder) continue;
    if (is_folder) return Shown(path) + " is a folder";
    const bool there = std::filesystem::exists(path, error);
    const std::string refusal = kind == FileDialog::Kind::Open
                                    ? RefusalToOpen(path, there, (flags & kFileMustExist) != 0)
                                    : RefusalToSave(path, there);
    if (!refusal.empty()) return refusal;
  }
  return "";
}

bool FillChosen(OpenFileName& record, const std::vector<std::string>& paths) {
  if (paths.empty()) return false;
  const std::filesystem::path first = paths.front();
  const std::string folder = first.parent_path().string();
  std::string file;
  std::size_t offset = 0;
  std::string title;
  if (paths.size() == 1 || (record.flags & kAllowMultiSelect) == 0) {
    file = paths.front();
    title = first.filename().string();
    offset = file.size() - title.size();
  } else {
    const char separator = (record.flags & kExplorerStyle) != 0 ? '\0' : ' ';
    file = folder;
    offset = folder.size() + 1;
    for (const auto& path : paths) {
      file += separator;
      file += std::filesystem::path(path).filename().string();
    }
  }
  if (text::length(file) + kEndOfList > static_cast<std::size_t>(std::max(record.max_file, 0))) {
    return false;
  }
  const auto dot = title.rfind('.');
  record.file_offset = static_cast<std::int16_t>(offset);
  record.file_extension =
      static_cast<std::int16_t>(dot == std::string::npos ? 0 : offset + dot + 1);
  PutInto(record.file, std::move(file), record.max_file);
  PutInto(record.file_title, std::move(title), record.max_file_title);
  return true;
}

std::vector<std::pair<std::string, std::string>> FilterPairs(const std::string& filter) {
  std::vector<std::string> parts(1);
  for (const char c : filter) {
    if (c == '|' || c == '\0') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  std::vector<std::pair<std::string, std::string>> pairs;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    if (!parts[i + 1].empty()) pairs.emplace_back(parts[i], parts[i + 1]);
  }
  return pairs;
}

std::string WithExtension(const std::string& path, const std::string& extension) {
  if (extension.empty() || std::filesystem::path(path).has_extension()) return path;
  return path + (extension.front() == '.' ? "" : ".") + extension;
}

}  // namespace corvane::desktop
