#include "platform/linux/store/local_file_system.h"

#include <glib.h>

#include <filesystem>
#include <sstream>
#include <system_error>
#include <utility>

#include "base/error.h"
#include "base/read_file.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

std::string ExecutableFolder() {
  std::error_code error;
  const auto path = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string("/") : path.parent_path().string();
}

std::string Valid(const std::string& text) {
  return Taken(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
}

}  // namespace

LocalFileSystem::LocalFileSystem() : LocalFileSystem(ExecutableFolder()) {}

LocalFileSystem::LocalFileSystem(std::string program_folder)
    : program_folder_(std::move(program_folder)) {}

std::string LocalFileSystem::CurrentFolder() const {
  std::error_code error;
  return std::filesystem::current_path(error).string();
}

bool LocalFileSystem::Exists(const std::string& path) const {
  std::error_code error;
  return fs::exists(path, error);
}

std::vector<std::string> LocalFileSystem::ReadLines(const std::string& path) const {
  auto content = ReadFile(path, std::string::npos);
  if (!content) {
    throw RunTimeError(kErrFileNotFound, "", "The file " + path + " cannot be read");
  }
  constexpr const char* kMark = "\xEF\xBB\xBF";
  if (content->starts_with(kMark)) content->erase(0, 3);
  std::vector<std::string> lines;
  std::istringstream text(Valid(*content));
  for (std::string line; std::getline(text, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

void LocalFileSystem::Write(const std::string& path, const std::string& content) {
  GError* raw = nullptr;
  if (g_file_set_contents(path.c_str(), content.data(), static_cast<gssize>(content.size()),
                          &raw)) {
    return;
  }
  const ErrorPtr error(raw);
  const std::string why = error->message;
  const bool denied = error->code == G_FILE_ERROR_ACCES || error->code == G_FILE_ERROR_PERM ||
                      error->code == G_FILE_ERROR_ROFS;
  throw RunTimeError(denied ? kErrPermissionDenied : kErrDeviceIo, "", why);
}

std::string LocalFileSystem::ReadText(const std::string& path, std::size_t most) const {
  return ReadFile(path, most).value_or("");
}

}  // namespace corvane::desktop
