#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/event.h"
#include "platform/linux/store/ini_file.h"
#include "platform/settings_store.h"

namespace corvane::desktop {

/// A SettingsStore of one INI file an application name, corvane/NAME.ini in the
/// user's configuration folder, over read-only defaults of the same form in the
/// system's configuration folders.
///
/// A file is read again before it is written and replaced in one step: neither a
/// crash nor a second window or process loses a value. A file that cannot be
/// understood is kept beside as NAME.ini.broken. Where nothing can be written,
/// values live until the program ends.
class IniSettingsStore : public SettingsStore {
 public:
  /// With the folders that the environment names.
  IniSettingsStore();
  /// With given folders; `defaults` are searched in order.
  IniSettingsStore(std::string user_folder, std::vector<std::string> defaults);

  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key, const std::string& fallback) const override;
  void SaveSetting(const std::string& application, const std::string& section,
                   const std::string& key, const std::string& value) override;

  /// Something is wrong with the settings, told once a trouble, in a sentence
  /// for the user.
  Event<const std::string&> Problem;

 private:
  struct Cached {
    std::string stamp;  // tells whether the file is still the one that was read
    IniValues values;
  };

  std::string PathOf(const std::string& application) const;
  bool Write(const std::string& application, const IniValues& changes);
  const IniValues& UserValues(const std::string& application) const;
  const IniValues& DefaultsOf(const std::string& application) const;
  bool KeepBroken(const std::string& path) const;
  void Tell(const std::string& what) const;

  const std::string user_folder_;
  const std::vector<std::string> default_folders_;
  mutable std::map<std::string, Cached> read_;
  mutable std::map<std::string, IniValues> defaults_;
  std::map<std::string, IniValues> unsaved_;  // by application
  mutable std::set<std::string> told_;
};

}  // namespace corvane::desktop
