#include "browser/reading/Glance.h"

#include <algorithm>
#include <vector>

#include "access/ElementWords.h"
#include "base/count.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;

constexpr int kWhole = 100;  // percent

std::string Joined(const std::vector<std::string>& words) {
  std::string all;
  for (const auto& each : words) all += (all.empty() || each.empty() ? "" : ", ") + each;
  return all;
}

std::string Count(std::size_t number, const std::string& one) {
  if (number == 0) return {};
  return Counted(number, one, one + "s");
}

}  // namespace

std::string ContentWords(const TextMap& map, std::size_t forms) {
  const auto& spans = map.Page().spans;
  const auto count = [&](Kind kind) {
    return static_cast<std::size_t>(std::count_if(
        spans.begin(), spans.end(), [kind](const PageSpan& span) { return span.kind == kind; }));
  };
  return Joined({Count(count(Kind::Heading), "heading"), Count(count(Kind::Link), "link"),
                 Count(forms, "form"), Count(count(Kind::Table), "table"),
                 Count(count(Kind::Landmark), "landmark")});
}

std::string WhereWords(const TextMap& map, int position) {
  const int place = std::clamp(position, 0, map.Page().length);
  std::vector<std::string> words;
  const auto landmark = map.Around(
      place, [](const PageSpan& span) { return span.kind == Kind::Landmark && span.facts; });
  if (landmark) {
    const ElementFacts& facts = *map.At(*landmark).facts;
    words.push_back("in " + (facts.name.empty() ? RoleWords(facts) : facts.name));
  }
  const auto heading = map.Next(TextMap::Way::Back, place + 1, std::nullopt,
                                [](const auto& span) { return span.kind == Kind::Heading; });
  if (heading) words.push_back("below " + map.Words(map.At(*heading)));
  const auto length = static_cast<long>(std::max(map.Page().length, 1));
  words.push_back(std::to_string(kWhole * static_cast<long>(place) / length) + " percent");
  return Joined(words);
}

}  // namespace corvane
