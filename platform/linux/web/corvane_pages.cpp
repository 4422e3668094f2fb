#include "platform/linux/web/corvane_pages.h"

#include <glib.h>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::string_view kSearchPath = "corvane://search/cgi-bin/query?";
constexpr std::string_view kFile = "file://";
constexpr std::size_t kLongestWords = 2000;

int HexDigit(char c) { return g_ascii_xdigit_value(c); }

/// Takes the escapes off; what only looks like an escape stays as it is.
std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '+') {
      plain += ' ';
    } else if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
               HexDigit(text[i + 2]) >= 0) {
      plain += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
      i += 2;
    } else {
      plain += text[i];
    }
  }
  const GText valid(g_utf8_make_valid(plain.data(), static_cast<gssize>(plain.size())));
  return Text(valid.get());
}

std::string Trim(const std::string& text) {
  const auto start = text.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t\r\n") - start + 1);
}

/// The address as a page of the program's own can link to it.
std::string Linked(const std::string& address) {
  return address.starts_with(kFile) ? kSavedPage + address.substr(kFile.size()) : address;
}

std::string RenderMatches(const std::vector<SearchMatch>& matches) {
  if (matches.empty()) return "<p>No favorite and no page of your history fits these words.</p>";
  std::string list = "<ul>\n";
  for (const auto& match : matches) {
    const std::string& title = match.title.empty() ? match.address : match.title;
    list += "<li><a href=\"" + EscapeHtml(Linked(match.address)) + "\">" + EscapeHtml(title) +
            "</a></li>\n";
  }
  return list + "</ul>";
}

}  // namespace

std::string SavedFile(const std::string& address) {
  const std::string start = kSavedPage + std::string("/");
  if (!address.starts_with(start)) return {};
  return std::string(kFile) + address.substr(start.size() - 1);
}

bool IsSearch(const std::string& address) { return address.starts_with(kSearchPath); }

std::string SearchedWords(const std::string& address) {
  if (!IsSearch(address)) return {};
  const std::string query = "&" + address.substr(kSearchPath.size());
  const auto words = query.find("&q=");
  return words == std::string::npos ? std::string() : Trim(Unescape(query.substr(words + 3)));
}

std::string ServiceAddress(const std::string& service, const std::string& words) {
  const auto place = service.find("%s");
  if (place == std::string::npos) return {};
  if (!service.starts_with("https://") && !service.starts_with("http://")) return {};
  const GText escaped(g_uri_escape_string(words.c_str(), nullptr, FALSE));
  return service.substr(0, place) + Text(escaped.get()) + service.substr(place + 2);
}

std::string RenderHome() { return WebResource("home.html"); }

std::string RenderSearch(const std::string& words, const std::vector<SearchMatch>& matches,
                         bool service_failed) {
  const std::string shown = Shorten(words, kLongestWords);
  const std::string why =
      service_failed ? "The web search service could not be reached."
                     : "No web search service is set. You can set one in the Internet options.";
  return FillTemplate(WebResource("search.html"), {{"words", EscapeHtml(shown)},
                                                   {"why", EscapeHtml(why)},
                                                   {"matches", RenderMatches(matches)}});
}

}  // namespace corvane::desktop
