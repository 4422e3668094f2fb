#include "browser/LinkFile.h"

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestName = 60;  // characters: with an extension it fits everywhere
constexpr const char* kForbidden = "/\\:*?\"<>|";

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

std::string SafeFileName(const std::string& name) {
  std::string safe;
  for (const char c : text::left(text::valid(name), kLongestName)) {
    const bool usable = !IsControl(c) && std::string(kForbidden).find(c) == std::string::npos;
    safe += usable ? c : ' ';
  }
  const auto start = safe.find_first_not_of(" .");
  if (start == std::string::npos) return "page";
  return safe.substr(start, safe.find_last_not_of(" .") - start + 1);
}

std::string ShortcutContent(const std::string& address) {
  return "[InternetShortcut]\r\nURL=" + OnOneLine(address) + "\r\n";
}

std::string DesktopLinkContent(const std::string& name, const std::string& address) {
  return "[Desktop Entry]\nType=Link\nName=" + OnOneLine(name) + "\nURL=" + OnOneLine(address) +
         "\n";
}

}  // namespace corvane
