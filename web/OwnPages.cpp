#include "web/OwnPages.h"

#include <map>

#include "base/html_text.h"
#include "base/safe_name.h"
#include "web/address/OwnAddress.h"

namespace corvane {
namespace {

constexpr std::size_t kLongestShown = 500;
constexpr std::size_t kLongestWords = 2000;

/// Each {{name}} replaced by the value of that name, which is put in as it is; an unknown
/// name leaves nothing.
std::string Filled(std::string_view layout, const std::map<std::string, std::string>& values) {
  std::string filled;
  std::size_t at = 0;
  while (true) {
    const auto open = layout.find("{{", at);
    const auto close = open == std::string_view::npos ? open : layout.find("}}", open);
    if (close == std::string_view::npos) return filled.append(layout.substr(at));
    filled += layout.substr(at, open - at);
    const auto value = values.find(std::string(layout.substr(open + 2, close - open - 2)));
    if (value != values.end()) filled += value->second;
    at = close + 2;
  }
}

std::string ListOf(const std::vector<SearchMatch>& matches) {
  if (matches.empty()) return "<p>No favorite and no page of your history fits these words.</p>";
  std::string list = "<ul>\n";
  for (const auto& match : matches) {
    const std::string& title = match.title.empty() ? match.address : match.title;
    list += "<li><a href=\"" + html::escaped(LinkTo(match.address)) + "\">" + html::escaped(title) +
            "</a></li>\n";
  }
  return list + "</ul>";
}

}  // namespace

std::string RenderProblem(std::string_view layout, const Problem& problem) {
  return Filled(layout, {{"title", html::escaped(Shorten(problem.title, kLongestShown))},
                         {"sentence", html::escaped(problem.sentence)},
                         {"advice", html::escaped(problem.advice)},
                         {"address", html::escaped(Shorten(problem.address, kLongestShown))}});
}

std::string RenderSearch(std::string_view layout, const std::string& words,
                         const std::vector<SearchMatch>& matches, bool service_failed) {
  const std::string why =
      service_failed ? "The web search service could not be reached."
                     : "No web search service is set. You can set one in the Internet options.";
  return Filled(layout, {{"words", html::escaped(Shorten(words, kLongestWords))},
                         {"why", html::escaped(why)},
                         {"matches", ListOf(matches)}});
}

}  // namespace corvane
