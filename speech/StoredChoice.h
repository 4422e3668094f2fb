#pragma once

#include <string>

#include "platform/settings_store.h"

namespace corvane {

/// A choice about speech as the user's last one, in any window, is stored.
inline std::string StoredChoice(const SettingsStore& settings, const std::string& key,
                                const std::string& fallback) {
  return settings.GetSetting("Corvane", "Settings", key, fallback);
}

}  // namespace corvane
