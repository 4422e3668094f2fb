#include "platform/linux/speech/voice_names.h"

#include <map>

#include "base/language.h"

namespace corvane::desktop {
namespace {

// Pages' names for a few languages that the synthesizer knows by others.
const std::map<std::string_view, std::string_view>& OtherNames() {
  static const std::map<std::string_view, std::string_view> kNames = {
      {"zh", "cmn"}, {"zh-hk", "yue"}, {"zh-yue", "yue"}, {"no", "nb"}, {"nn", "nb"},
      {"iw", "he"},  {"in", "id"},     {"ji", "yi"},      {"mo", "ro"}, {"sh", "hr"}};
  return kNames;
}

}  // namespace

std::vector<std::string> VoicesOf(const std::string& language) {
  std::vector<std::string> names;
  for (const std::string_view tag : {std::string_view(language), language::Primary(language)}) {
    const auto other = OtherNames().find(tag);
    names.emplace_back(other != OtherNames().end() ? other->second : tag);
  }
  return names;
}

std::vector<std::string> OtherNamesOf(std::string_view language) {
  std::vector<std::string> names;
  for (const auto& [name, its] : OtherNames()) {
    if (its == language && language::Primary(name) == name) names.emplace_back(name);
  }
  return names;
}

}  // namespace corvane::desktop
