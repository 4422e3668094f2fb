#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "platform/linux/pdf/document.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;

namespace {

constexpr corvane::pdf::Limits kSmall{.longest = 1U << 20U, .most_words = 20000, .most_seconds = 1};

/// Whether every tag of the page is one that the program writes.
bool HasOwnTagsOnly(std::string_view page) {
  static constexpr std::string_view kTags[] = {
      "!DOCTYPE", "html", "head", "meta", "title", "body",    "section",   "p",  "div",
      "h1",       "h2",   "h3",   "h4",   "h5",    "h6",      "ul",        "li", "a",
      "span",     "tr",   "td",   "th",   "table", "caption", "blockquote"};
  for (auto at = page.find('<'); at != std::string_view::npos; at = page.find('<', at + 1)) {
    std::string_view name = page.substr(at + 1);
    if (name.starts_with('/')) name.remove_prefix(1);
    name = name.substr(0, name.find_first_of(" >\n"));
    if (std::find(std::begin(kTags), std::end(kTags), name) == std::end(kTags)) return false;
  }
  return true;
}

}  // namespace

// Documents of which anybody may be the author. What ends the process here would end the
// confined one that reads a document, and its user would be told.
void FuzzOne(const std::string& input) {
  static const bool prepared = (pdf::Prepare(), true);
  Promise(prepared);
  std::string page;
  if (pdf::Convert(input, {"https://example.org/a.pdf"}, kSmall, page) != pdf::Outcome::Done)
    return;
  Promise(text::valid(page) == page);
  Promise(HasOwnTagsOnly(page));
  Promise(page.ends_with("</body></html>\n"));
}
