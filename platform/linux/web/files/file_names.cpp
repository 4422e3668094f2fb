#include "platform/linux/web/files/file_names.h"

#include <glib.h>

#include <filesystem>
#include <utility>

#include "platform/linux/web/gobject.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestName = 120;   // bytes; with room for what is put behind
constexpr std::size_t kLongestEnding = 12;  // ".tar.gz" and the like
constexpr const char* kForbidden = "/\\:*?\"<>|";

/// Where the name's ending starts; its length when it has none.
std::size_t EndingOf(const std::string& name) {
  const auto dot = name.rfind('.');
  const bool is_ending = dot != std::string::npos && dot > 0 && name.size() - dot <= kLongestEnding;
  return is_ending ? dot : name.size();
}

/// At most so many bytes, and no character cut in two.
std::string Cut(const std::string& text, std::size_t longest) {
  if (text.size() <= longest) return text;
  auto end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end);
}

// Characters that turn a name's ending round on the screen, or are not seen.
bool IsDeceptive(gunichar c) {
  return (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

std::string WithoutBlanksAround(const std::string& text) {
  const auto start = text.find_first_not_of(" .");
  if (start == std::string::npos) return "";
  return text.substr(start, text.find_last_not_of(" .") - start + 1);
}

}  // namespace

std::string CleanFileName(const std::string& name, const std::string& fallback) {
  const GText valid(g_utf8_make_valid(name.data(), static_cast<gssize>(name.size())));
  std::string clean;
  for (const char* at = valid.get(); *at != '\0'; at = g_utf8_next_char(at)) {
    const gunichar c = g_utf8_get_char(at);
    if (IsDeceptive(c)) continue;
    const bool usable =
        !g_unichar_iscntrl(c) &&
        (c > 127 || std::string(kForbidden).find(static_cast<char>(c)) == std::string::npos);
    usable ? clean.append(at, static_cast<std::size_t>(g_utf8_next_char(at) - at)) : clean += ' ';
  }
  clean = WithoutBlanksAround(clean);
  const auto ending = EndingOf(clean);
  clean = WithoutBlanksAround(Cut(clean.substr(0, ending), kLongestName)) + clean.substr(ending);
  return clean.empty() ? fallback : clean;
}

std::string FreePath(const std::string& folder, const std::string& name,
                     const std::function<bool(const std::string& path)>& taken) {
  namespace fs = std::filesystem;
  const auto ending = EndingOf(name);
  const auto is_free = [&](const fs::path& path) {
    std::error_code error;
    return !fs::exists(fs::symlink_status(path, error)) && !(taken && taken(path.string()));
  };
  fs::path path = fs::path(folder) / name;
  for (int i = 2; !is_free(path); ++i) {
    path =
        fs::path(folder) / (name.substr(0, ending) + " " + std::to_string(i) + name.substr(ending));
  }
  return path.string();
}

std::string DownloadFolder() {
  const char* folder = g_get_user_special_dir(G_USER_DIRECTORY_DOWNLOAD);
  return folder != nullptr ? folder : g_get_home_dir();
}

}  // namespace corvane::desktop
