#include "web/EngineChoices.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"

namespace corvane {
namespace {

constexpr const char* kApplication = "Corvane";
constexpr const char* kSection = "Settings";
constexpr const char* kTrue = "True";
constexpr double kLeastZoom = 25;  // percent
constexpr double kMostZoom = 500;
constexpr double kMostFontSize = 72;  // pixels

}  // namespace

EngineChoices EngineChoices::Read(const SettingsStore& store) {
  const auto value = [&](const char* key, const std::string& fallback) {
    return store.GetSetting(kApplication, kSection, key, fallback);
  };
  EngineChoices choices;
  choices.start_page = value("StartPage", kHomePage);
  choices.search_service = value("SearchService", kDefaultSearchService);
  if (!SearchServiceProblem(choices.search_service).empty()) {
    choices.search_service = kDefaultSearchService;
  }
  const double zoom = number::leading(value("Zoom", "100"));
  if (zoom >= kLeastZoom && zoom <= kMostZoom) choices.preferences.zoom = zoom / 100;
  const double size = number::leading(value("MinimumFontSize", "0"));
  choices.preferences.minimum_font_size = static_cast<int>(std::clamp(size, 0.0, kMostFontSize));
  choices.preferences.images = value("Images", kTrue) == kTrue;
  choices.preferences.scripts = value("Scripts", kTrue) == kTrue;
  return choices;
}

void EngineChoices::Write(SettingsStore& store) const {
  const auto save = [&](const char* key, const std::string& value) {
    store.SaveSetting(kApplication, kSection, key, value);
  };
  save("StartPage", start_page);
  save("SearchService", search_service);
  save("Zoom", std::to_string(std::lround(preferences.zoom * 100)));
  save("MinimumFontSize", std::to_string(preferences.minimum_font_size));
  save("Images", preferences.images ? kTrue : "False");
  save("Scripts", preferences.scripts ? kTrue : "False");
}

std::string SearchServiceProblem(const std::string& address) {
  if (address.empty()) return "";
  if (!address.starts_with("http://") && !address.starts_with("https://")) {
    return "The search service's address must begin with http or https";
  }
  if (address.find("%s") == std::string::npos) {
    return "The search service's address must hold %s where the words go";
  }
  return "";
}

}  // namespace corvane
