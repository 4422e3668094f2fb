#include <algorithm>

#include "base/text.h"
#include "tests/fuzz/fuzz.h"
#include "web/OwnPages.h"
#include "web/address/OwnAddress.h"

using namespace corvane;

namespace {

constexpr const char* kLayout =
    "{{title}} {{sentence}} {{advice}} {{address}} {{words}} {{why}} {{matches}}";

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
  PromiseAlike(RenderSearch(kLayout, shown, {{text + "x", text + "x"}}, false),
               RenderSearch(kLayout, "x", {{"x", "x"}}, false));
  const std::string address = ServiceAddress("https://example.org/?q=%s", words);
  Promise(address.starts_with("https://example.org/?q="));
  Promise(address.find_first_of("\r\n \"<>&#") == std::string::npos);
  const std::string any = text + "x";
  PromiseAlike(RenderProblem(kLayout, {any, any, any, any}),
               RenderProblem(kLayout, {"x", "x", "x", "x"}));
}
