#include "web/library/LinkFile.h"

#include "base/html_text.h"
#include "base/profile_text.h"
#include "base/safe_name.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestAddress = 100'000;  // characters
constexpr const char* kLinkSection = "Desktop Entry";

bool EndsWith(std::string_view path, std::string_view ending) {
  return path.size() > ending.size() &&
         text::same_ignoring_case(path.substr(path.size() - ending.size()), ending);
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }

// The scheme as an engine would find it, which passes over blanks in front and
// line breaks and tabs anywhere.
std::string SchemeOf(const std::string& address) {
  std::string scheme;
  for (const char c : address) {
    if (c == ':') return text::lower(scheme);
    if (IsControl(c) || (c == ' ' && scheme.empty())) continue;
    if (c == '/' || c == '?' || c == '#') break;
    scheme += c;
  }
  return {};
}

std::string OnOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) line += IsControl(c) ? ' ' : c;
  return line;
}

}  // namespace

bool IsHostileAddress(const std::string& address, const std::string& from) {
  const std::string scheme = SchemeOf(address);
  if (scheme == "vbscript" || scheme == "data") return true;
  if (scheme == "javascript") return from.empty();
  const bool is_inside = scheme == "file" || scheme == "corvane";
  const std::string asking = SchemeOf(from);
  return is_inside && !from.empty() && asking != scheme && asking != "corvane";
}

std::string RefusedWords(const std::string& address) {
  constexpr std::size_t kLongestSpoken = 100;  // characters of the address
  return "Address refused: " + text::left(address, kLongestSpoken);
}

LinkKind LinkKindOf(std::string_view path) {
  if (EndsWith(path, ".url")) return LinkKind::Shortcut;
  if (EndsWith(path, ".desktop")) return LinkKind::DesktopLink;
  if (EndsWith(path, "htm") || EndsWith(path, ".html")) return LinkKind::Page;
  return LinkKind::None;
}

LinkFile ReadLinkFile(const std::string& path, std::string_view content,
                      const std::vector<std::string>& languages) {
  content = content.substr(0, kMostOfLinkFile);
  const auto value = [&](std::string_view section, std::string_view key) {
    return text::valid(profile::value(content, section, key));
  };
  LinkFile file;
  switch (LinkKindOf(path)) {
    case LinkKind::Page:
      file.address = path;
      file.name = PlainName(html::title_of(content));
      break;
    case LinkKind::DesktopLink:
      file.address = value(kLinkSection, "URL");
      for (const auto& language : languages) {
        if (file.name.empty()) file.name = PlainName(value(kLinkSection, "Name[" + language + "]"));
      }
      if (file.name.empty()) file.name = PlainName(value(kLinkSection, "Name"));
      break;
    default:
      file.address = value("InternetShortcut", "URL");
      break;
  }
  file.address = text::left(file.address, kLongestAddress);
  return file;
}

std::string ShownFileName(std::string_view name) {
  const LinkKind kind = LinkKindOf(name);
  const bool is_link = kind == LinkKind::Shortcut || kind == LinkKind::DesktopLink;
  return PlainName(is_link ? name.substr(0, name.rfind('.')) : name);
}

std::string ShortcutContent(const std::string& address) {
  return "[InternetShortcut]\r\nURL=" + OnOneLine(address) + "\r\n";
}

std::string DesktopLinkContent(const std::string& name, const std::string& address) {
  return "[Desktop Entry]\nType=Link\nName=" + OnOneLine(name) + "\nURL=" + OnOneLine(address) +
         "\n";
}

}  // namespace corvane
