#include "speech/NearestLanguage.h"

#include <algorithm>
#include <array>

#include "base/language.h"

namespace corvane {
namespace {

struct Neighbour {
  std::string_view language;
  std::string_view near;
};

// The nearest first, where a language has several.
constexpr auto kNeighbours = std::to_array<Neighbour>({
    {"ast", "es"}, {"ast", "pt"}, {"bar", "de"}, {"be", "ru"},  {"bho", "hi"}, {"bo", "ne"},
    {"br", "cy"},  {"ckb", "ku"}, {"cnr", "sr"}, {"co", "it"},  {"crh", "tr"}, {"dsb", "cs"},
    {"fo", "is"},  {"fur", "it"}, {"fy", "nl"},  {"gag", "tr"}, {"gl", "pt"},  {"gl", "es"},
    {"gsw", "de"}, {"gv", "ga"},  {"hsb", "cs"}, {"jv", "id"},  {"kab", "fr"}, {"kw", "cy"},
    {"li", "nl"},  {"lmo", "it"}, {"lo", "th"},  {"mad", "id"}, {"mai", "hi"}, {"mg", "id"},
    {"mn", "ru"},  {"nap", "it"}, {"nds", "de"}, {"nr", "tn"},  {"nso", "tn"}, {"oc", "ca"},
    {"oc", "fr"},  {"pms", "it"}, {"ps", "fa"},  {"rm", "it"},  {"rue", "uk"}, {"sa", "hi"},
    {"sah", "tt"}, {"sc", "it"},  {"scn", "it"}, {"sco", "en"}, {"se", "smj"}, {"st", "tn"},
    {"su", "id"},  {"szl", "pl"}, {"tg", "fa"},  {"tl", "id"},  {"fil", "id"}, {"tyv", "ky"},
    {"vec", "it"}, {"wa", "fr"},  {"xh", "sw"},  {"yi", "de"},  {"zu", "sw"},
});

}  // namespace

std::string VoiceOf(const std::vector<InstalledVoice>& voices, std::string_view language) {
  const auto at = std::find_if(voices.begin(), voices.end(), [&](const InstalledVoice& voice) {
    return language::Primary(voice.language) == language;
  });
  return at == voices.end() ? std::string() : at->name;
}

bool HasVoice(const std::vector<InstalledVoice>& voices, std::string_view language) {
  return !VoiceOf(voices, language).empty();
}

std::string_view NearestLanguage(const std::vector<InstalledVoice>& voices,
                                 std::string_view language) {
  for (const Neighbour& each : kNeighbours) {
    if (each.language == language && HasVoice(voices, each.near)) return each.near;
  }
  return {};
}

}  // namespace corvane
