#pragma once

#include <string>

#include "platform/settings_store.h"
#include "web/address/OwnAddress.h"

namespace corvane {

inline constexpr const char* kDefaultSearchService = "https://html.duckduckgo.com/html/?q=%s";

/// What the user may set for all pages.
struct EnginePreferences {
  double zoom = 1.0;
  int minimum_font_size = 0;  ///< pixels
  bool images = true;
  bool scripts = true;
};

/// What the user has chosen for the engine, as the settings store keeps it among
/// the program's own settings. A stored value that makes no sense counts as its
/// default.
struct EngineChoices {
  std::string start_page = kHomePage;
  std::string search_service = kDefaultSearchService;  ///< empty: none
  EnginePreferences preferences;

  static EngineChoices Read(const SettingsStore& store);
  void Write(SettingsStore& store) const;
};

/// Why the text cannot be the search service's address; empty when it can.
std::string SearchServiceProblem(const std::string& address);

}  // namespace corvane
