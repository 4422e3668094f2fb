#include "web/address/Address.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/safe_name.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestSite = 100;
constexpr std::string_view kNeverEscaped = "-._~";
constexpr std::string_view kKeptInPaths = "-._~!$&'()*+,/:=@";

// Addresses of pages, and those that never leave them.
constexpr std::array<std::string_view, 17> kInside = {
    "http",    "https",  "file",        "about",      "data",     "blob",
    "corvane", "ws",     "wss",         "javascript", "vbscript", "resource",
    "cid",     "webkit", "view-source", "filesystem", "jar"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return text::lower(c) >= 'a' && text::lower(c) <= 'z'; }

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char low = text::lower(c);
  return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

/// Takes the part up to the separator off the rest, the separator too.
std::string_view TakePart(std::string_view& rest, char separator) {
  const auto end = rest.find(separator);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return part;
}

bool IsFourNumbers(std::string_view host) {
  if (std::count(host.begin(), host.end(), '.') != 3 || host.back() == '.') return false;
  while (!host.empty()) {
    const std::string_view part = TakePart(host, '.');
    if (part.empty() || part.size() > 3 || !std::all_of(part.begin(), part.end(), IsDigit)) {
      return false;
    }
    if (part.size() > 1 && part[0] == '0') return false;
    if (part.size() == 3 && part > "255") return false;
  }
  return true;
}

/// How many groups of 16 bits these are; nothing when they are none. `last`: four
/// numbers may stand at their end.
std::optional<int> GroupsOf(std::string_view text, bool last) {
  if (text.empty()) return 0;
  if (text.back() == ':') return std::nullopt;
  int groups = 0;
  while (!text.empty()) {
    const std::string_view group = TakePart(text, ':');
    if (last && text.empty() && IsFourNumbers(group)) return groups + 2;
    const bool is_hex =
        std::all_of(group.begin(), group.end(), [](char c) { return HexDigit(c) >= 0; });
    if (group.empty() || group.size() > 4 || !is_hex) return std::nullopt;
    ++groups;
  }
  return groups;
}

bool IsEightGroups(std::string_view host) {
  constexpr int kGroups = 8;
  if (const auto zone = host.find('%'); zone != std::string_view::npos) {
    if (zone + 1 == host.size()) return false;
    host = host.substr(0, zone);
  }
  const auto gap = host.find("::");
  if (gap == std::string_view::npos) return GroupsOf(host, true) == kGroups;
  const auto before = GroupsOf(host.substr(0, gap), false);
  const auto after = GroupsOf(host.substr(gap + 2), true);
  return before && after && *before + *after < kGroups;
}

std::string EscapedBut(std::string_view text, std::string_view kept) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : text) {
    if (IsLetter(c) || IsDigit(c) || kept.find(c) != std::string_view::npos) {
      escaped += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      escaped += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    }
  }
  return escaped;
}

}  // namespace

std::string SchemeOf(std::string_view address) {
  const auto colon = address.find(':');
  if (colon == std::string_view::npos || colon == 0 || !IsLetter(address[0])) return {};
  const std::string_view scheme = address.substr(0, colon);
  const bool fits = std::all_of(scheme.begin(), scheme.end(), [](char c) {
    return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.';
  });
  return fits ? text::lower(scheme) : "";
}

bool IsOutside(std::string_view address) {
  const std::string scheme = SchemeOf(address);
  if (scheme.empty() || scheme.starts_with("webkit")) return false;
  return std::find(kInside.begin(), kInside.end(), scheme) == kInside.end();
}

std::string SiteOf(std::string_view address) {
  const std::string scheme = SchemeOf(address);
  std::string_view host = address.substr(scheme.empty() ? 0 : scheme.size() + 1);
  if (scheme.empty() || !host.starts_with("//")) return Shorten(address, kLongestSite);
  host = host.substr(2, host.find_first_of("/?#", 2) - 2);
  if (const auto user = host.rfind('@'); user != std::string_view::npos) {
    host.remove_prefix(user + 1);
  }
  const bool brackets = host.starts_with('[');
  host = brackets ? host.substr(1, host.find(']') - 1) : host.substr(0, host.find(':'));
  return host.empty() ? Shorten(address, kLongestSite) : std::string(host);
}

bool IsNetworkNumber(std::string_view host) {
  if (host.empty()) return false;
  return host.find(':') == std::string_view::npos ? IsFourNumbers(host) : IsEightGroups(host);
}

std::string FileAddress(std::string_view path) {
  return "file://" + EscapedBut(path, kKeptInPaths);
}

std::string Escaped(std::string_view text) { return EscapedBut(text, kNeverEscaped); }

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool room = text[i] == '%' && i + 2 < text.size();
    const int high = room ? HexDigit(text[i + 1]) : -1;
    const int low = room ? HexDigit(text[i + 2]) : -1;
    if (high >= 0 && low >= 0) {
      plain += static_cast<char>(high * 16 + low);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace corvane
