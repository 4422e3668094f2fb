#include "web/address/TypedAddress.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/safe_name.h"
#include "base/text.h"
#include "web/address/Address.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestAddress = 100'000;
constexpr std::size_t kLongestHost = 253;
constexpr int kHighestPort = 65535;
constexpr const char* kHowTo =
    "Type an address such as example.org, or the word Search and what you are looking for.";

TypedAddress Unusable(const std::string& title, const std::string& sentence,
                      const std::string& advice, const std::string& typed) {
  return {"", "", Problem{title, sentence, advice, typed}};
}

TypedAddress Malformed(const std::string& typed) {
  return Unusable("Not an address",
                  "What was typed is not an address that Corvane can open: " + Shorten(typed, 200),
                  kHowTo, typed);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Valid UTF-8 without control characters and without blanks at the ends.
std::string Tidy(std::string_view text) {
  std::string tidy = text::valid(text);
  tidy.erase(std::remove_if(tidy.begin(), tidy.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }),
             tidy.end());
  for (const std::string blank : {" ", "\xC2\xA0"}) {
    while (tidy.starts_with(blank)) tidy.erase(0, blank.size());
    while (tidy.ends_with(blank)) tidy.erase(tidy.size() - blank.size());
  }
  return tidy;
}

std::string EscapeBlanks(std::string text) {
  return text::replace_all(std::move(text), " ", "%20");
}

/// The scheme in front of the text, in small letters; none for "host:port".
std::string TypedScheme(const std::string& text) {
  const std::string scheme = SchemeOf(text);
  auto after = scheme.size() + 1;
  while (after < text.size() && IsDigit(text[after])) ++after;
  const bool is_port = after > scheme.size() + 1 &&
                       (after == text.size() || text.find_first_of("/?#", after) == after);
  return is_port ? "" : scheme;
}

/// Whether a computer of the network can be called that.
bool IsHostName(const std::string& name) {
  constexpr std::size_t kLongestPart = 63;  // characters between two dots
  if (name.empty() || name.size() > kLongestHost || name.starts_with('.')) return false;
  if (name.find("..") != std::string::npos) return false;
  if (PlainName("." + name + ".").find_first_of(" %<>\"\\^`{|}[]") != std::string::npos)
    return false;
  for (std::size_t start = 0; start < name.size();) {
    const auto end = std::min(name.find('.', start), name.size());
    if (text::length(name.substr(start, end - start)) > kLongestPart) return false;
    start = end + 1;
  }
  return true;
}

struct Host {
  std::string name;  ///< with brackets for a numeric address that needs them
  bool has_port = false;
};

/// Takes an authority apart; none when it is not well formed.
std::optional<Host> ParseHost(const std::string& authority) {
  Host host;
  const auto user = authority.rfind('@');
  std::string rest = user == std::string::npos ? authority : authority.substr(user + 1);
  std::string port;
  if (rest.starts_with('[')) {
    const auto close = rest.find(']');
    if (close == std::string::npos) return std::nullopt;
    host.name = rest.substr(0, close + 1);
    const std::string number = rest.substr(1, close - 1);
    if (number.find(':') == std::string::npos || !IsNetworkNumber(number)) {
      return std::nullopt;
    }
    rest.erase(0, close + 1);
    if (!rest.empty() && rest[0] != ':') return std::nullopt;
    if (!rest.empty()) port = rest.substr(1);
  } else {
    const auto colon = rest.find(':');
    host.name = rest.substr(0, colon);
    if (colon != std::string::npos) port = rest.substr(colon + 1);
    if (!IsHostName(host.name)) return std::nullopt;
  }
  host.has_port = !port.empty();
  if (!std::all_of(port.begin(), port.end(), IsDigit) || port.size() > 5) return std::nullopt;
  if (host.has_port && std::stoi(port) > kHighestPort) return std::nullopt;
  return host;
}

TypedAddress ResolveWeb(const std::string& scheme, const std::string& typed) {
  std::string rest = typed.substr(scheme.size() + 1);
  rest.erase(0, std::min(rest.find_first_not_of('/'), rest.size()));
  const auto end = std::min(rest.find_first_of("/?#"), rest.size());
  if (!ParseHost(rest.substr(0, end))) return Malformed(typed);
  return {scheme + "://" + EscapeBlanks(rest), "", std::nullopt};
}

bool IsFile(std::string_view path) {
  if (!path.starts_with('/') || path.find('\0') != std::string_view::npos) return false;
  std::error_code error;
  return std::filesystem::exists(path, error);
}

// The engine opens only files whose names are text.
TypedAddress ResolveExisting(const std::string& path, const std::string& typed) {
  if (text::valid(path) == path) return {FileAddress(path), "", std::nullopt};
  return Unusable(
      "File cannot be opened",
      "The file's name, or its folder's, holds bytes that are no text: " + Shorten(typed, 200),
      "Give it another name and open it again.", typed);
}

TypedAddress ResolveFile(const std::string& typed) {
  std::string rest = typed.substr(std::string("file:").size());
  if (rest.starts_with("//localhost/")) rest.erase(0, std::string("//localhost").size());
  if (rest.starts_with("///")) rest.erase(0, 2);
  if (!rest.starts_with('/') || rest.starts_with("//")) return Malformed(typed);
  return {"file://" + EscapeBlanks(rest), "", std::nullopt};
}

TypedAddress ResolveScheme(const std::string& scheme, const std::string& typed) {
  if (scheme == "http" || scheme == "https") return ResolveWeb(scheme, typed);
  if (scheme == "file") return ResolveFile(typed);
  if (scheme == "about" || scheme == "data" || scheme == "corvane") {
    return {scheme + EscapeBlanks(typed.substr(scheme.size())), "", std::nullopt};
  }
  if (scheme == "javascript") {
    return Unusable("Address refused",
                    "Scripts are not run from the address box, because a page may have told you to "
                    "paste one that harms you.",
                    kHowTo, typed);
  }
  TypedAddress unknown = Unusable(
      "Unknown kind of address",
      "Corvane cannot open addresses that begin with " + Shorten(scheme, 50) + ":", kHowTo, typed);
  if (IsOutside(typed)) unknown.outside = EscapeBlanks(typed);
  return unknown;
}

TypedAddress ResolveHost(std::string typed) {
  if (typed.starts_with("//")) typed.erase(0, 2);
  const auto end = std::min(typed.find_first_of("/?#"), typed.size());
  std::string authority = typed.substr(0, end);
  const bool bare_number =
      std::count(authority.begin(), authority.end(), ':') > 1 && IsNetworkNumber(authority);
  if (bare_number) authority = "[" + authority + "]";
  const auto host = ParseHost(authority);
  if (!host) return Malformed(typed);

  const std::string rest = authority + EscapeBlanks(typed.substr(end));
  const std::string name = text::lower(host->name);
  const bool is_number = name.starts_with('[') || IsNetworkNumber(name);
  const bool is_local = name == "localhost" || name.ends_with(".localhost");
  const bool has_dot = name.find('.') != std::string::npos;
  if (is_number || is_local || host->has_port || !has_dot)
    return {"http://" + rest, "", std::nullopt};
  return {"https://" + rest, "http://" + rest, std::nullopt};
}

}  // namespace

TypedAddress ResolveTyped(std::string_view text, const std::string& home) {
  if (text.size() > kLongestAddress) {
    return Unusable("Address too long", "What was typed is too long to be an address.", kHowTo,
                    Shorten(Tidy(text.substr(0, 1000)), 200));
  }
  const std::string typed = Tidy(text);
  // A file's name may hold anything, line ends and blanks at its end too.
  if (IsFile(text)) return ResolveExisting(std::string(text), typed);
  if (typed.empty()) {
    return Unusable("No address", "Nothing was typed into the address box.", kHowTo, "");
  }
  if (typed == "~" || typed.starts_with("~/"))
    return {FileAddress(home + typed.substr(1)), "", std::nullopt};
  if (typed.starts_with('/') && !typed.starts_with("//"))
    return {FileAddress(typed), "", std::nullopt};
  const std::string scheme = TypedScheme(typed);
  return scheme.empty() ? ResolveHost(typed) : ResolveScheme(scheme, typed);
}

}  // namespace corvane
