#pragma once

#include <string>
#include <vector>

#include "base/manner.h"
#include "platform/own_options.h"
#include "platform/settings_store.h"

namespace corvane {

/// The manner as the user's settings have it: `Manner` decides between the two
/// ways, a setting of its own decides each choice that the user has made.
class MannerSettings {
 public:
  explicit MannerSettings(SettingsStore& store) : store_(store) {}

  /// The manner in force. The same object for good; Read and the options change it.
  const Manner& Current() const { return manner_; }
  /// Takes the store's values. Returns the names of those settings whose stored
  /// value is none of theirs; they count as not stored.
  std::vector<std::string> Read();
  /// The choices for a dialog; must not be used any more when this object goes.
  OwnOptions Options();

 private:
  std::vector<OwnOption> List() const;
  void Apply(const std::vector<std::string>& values);

  SettingsStore& store_;
  Manner manner_;
};

}  // namespace corvane
