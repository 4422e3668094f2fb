#pragma once

#include <string>

namespace corvane {

/// The per-user store of text values, addressed by application name, section
/// and key. A value that was never saved comes from the system's defaults, else
/// from the caller's.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string GetSetting(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& fallback) const = 0;
  /// Saves at once. A store that cannot be written keeps the value until the
  /// program ends and tells the user once; it does not raise.
  virtual void SaveSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& value) = 0;
};

}  // namespace corvane
