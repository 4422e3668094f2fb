#include <algorithm>

#include "base/text.h"
#include "platform/linux/web/corvane_pages.h"
#include "platform/linux/web/problem.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;
using namespace corvane::desktop;

namespace {

auto Marks(const std::string& page, char mark) {
  return std::count(page.begin(), page.end(), mark);
}

/// Text from outside must not become markup of the program's own page.
void PromiseAlike(const std::string& page, const std::string& harmless) {
  Promise(text::valid(page) == page);
  Promise(Marks(page, '<') == Marks(harmless, '<'));
  Promise(Marks(page, '"') == Marks(harmless, '"'));
}

}  // namespace

// Searches, which any page can ask for, and addresses and titles of pages in the
// pages that the program serves itself.
void FuzzOne(const std::string& input) {
  const std::string words =
      SearchedWords("corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=" + input);
  SearchedWords(input);
  const std::string text = text::valid(input);
  const std::string shown = words + "x";  // an empty text may leave out what shows it
  PromiseAlike(RenderSearch(shown, {{text + "x", text + "x"}}, false),
               RenderSearch("x", {{"x", "x"}}, false));
  const std::string address = ServiceAddress("https://example.org/?q=%s", words);
  Promise(address.starts_with("https://example.org/?q="));
  Promise(address.find_first_of("\r\n \"<>&#") == std::string::npos);
  const std::string any = text + "x";
  PromiseAlike(RenderProblem({any, any, any, any}), RenderProblem({"x", "x", "x", "x"}));
}
