#include "web/page/WordsRecord.h"

#include <algorithm>

#include "base/language.h"
#include "web/page/RecordJson.h"

namespace corvane {
namespace {

using namespace record;

constexpr std::size_t kLongestText = 4000;  // bytes; the script allows 1,000 characters
constexpr int kMostLeftOut = 1'000'000;

}  // namespace

std::optional<PageWords> ParsePageWords(std::string_view text) {
  const Json json = Parse(text);
  if (!json.is_object()) return std::nullopt;
  PageWords words;
  if (const Json& more = Member(json, "more"); !more.is_null()) {
    words.more = std::min(NumberOf(more, 0), kMostLeftOut);
    return words.more > 0 ? std::optional(words) : std::nullopt;
  }
  words.language = language::Tag(TextOf(Member(json, "language")));
  words.dialog = TextOf(Member(json, "dialog"), kLongestText);
  words.name = TextOf(Member(json, "name"), kLongestText);
  words.words = TextOf(Member(json, words.dialog.empty() ? "words" : "text"), kLongestText);
  words.urgent = Member(json, "urgent") == true;
  const bool is_dialog = words.dialog == "dialog" || words.dialog == "alertdialog";
  if (is_dialog || (words.dialog.empty() && !words.words.empty())) return words;
  return std::nullopt;
}

}  // namespace corvane
