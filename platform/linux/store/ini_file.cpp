#include "platform/linux/store/ini_file.h"

#include <glib.h>

#include <memory>
#include <string_view>
#include <utility>

#include "base/read_file.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMostBytes = 16'000'000;
constexpr int kFolderMode = 0700;
constexpr int kFileMode = 0600;

using KeyFile = Owned<GKeyFile, g_key_file_unref>;
using TextList = Owned<char*, g_strfreev>;

std::string ValidText(const std::string& text) {
  return Taken(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
}

// Names in a form that every settings file can hold: letters, digits and a few
// signs stand for themselves.
std::string Escaped(const std::string& name) {
  return Taken(g_uri_escape_string(ValidText(name).c_str(), nullptr, TRUE));
}

std::string Unescaped(const char* name) {
  const GText plain(g_uri_unescape_string(name, nullptr));
  return ValidText(plain ? plain.get() : name);
}

// The library warns of its own fault when it is asked to read such a value.
bool EndsInsideEscape(std::string_view value) {
  const auto before = value.find_last_not_of('\\');
  const auto backslashes = value.size() - (before == std::string_view::npos ? 0 : before + 1);
  return backslashes % 2 == 1;
}

}  // namespace

std::string LastPartOf(const std::string& name) {
  auto file = Escaped(name);
  if (file == "." || file == "..") file += '_';
  return file;
}

std::optional<IniValues> ParseIni(const std::string& text) {
  const KeyFile file(g_key_file_new());
  if (!g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr)) {
    return std::nullopt;
  }
  IniValues values;
  const TextList groups(g_key_file_get_groups(file.get(), nullptr));
  for (char** group = groups.get(); *group; ++group) {
    const TextList keys(g_key_file_get_keys(file.get(), *group, nullptr, nullptr));
    for (char** key = keys.get(); key && *key; ++key) {
      GText value(g_key_file_get_value(file.get(), *group, *key, nullptr));
      // A person may have written a lone backslash: then the value is what stands there.
      if (value && !EndsInsideEscape(value.get())) {
        GText plain(g_key_file_get_string(file.get(), *group, *key, nullptr));
        if (plain) value = std::move(plain);
      }
      if (value) values[{Unescaped(*group), Unescaped(*key)}] = ValidText(value.get());
    }
  }
  return values;
}

std::string FormatIni(const IniValues& values) {
  const KeyFile file(g_key_file_new());
  for (const auto& [key, value] : values) {
    g_key_file_set_string(file.get(), Escaped(key.first).c_str(), Escaped(key.second).c_str(),
                          ValidText(value).c_str());
  }
  gsize length = 0;
  const GText text(g_key_file_to_data(file.get(), &length, nullptr));
  return {text.get(), length};
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
  auto content = ReadFile(path, kMostBytes + 1);
  return content && content->size() <= kMostBytes ? std::move(content) : std::nullopt;
}

bool ReplaceFile(const std::string& path, const std::string& text) {
  const GText folder(g_path_get_dirname(path.c_str()));
  if (g_mkdir_with_parents(folder.get(), kFolderMode) != 0) return false;
  return g_file_set_contents_full(path.c_str(), text.data(), static_cast<gssize>(text.size()),
                                  G_FILE_SET_CONTENTS_CONSISTENT, kFileMode, nullptr) != FALSE;
}

}  // namespace corvane::desktop
