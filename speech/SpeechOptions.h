#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"
#include "platform/own_options.h"
#include "speech/SpeechSettings.h"

namespace corvane {

/// The page "Speech" of the dialog of options. Each choice is heard as it is made, in all
/// windows; what is not applied in the end is taken back.
class SpeechOptions {
 public:
  /// Both must outlive this object.
  SpeechOptions(Desktop& desktop, SpeechSettings& settings);

  /// For the dialog; must not be used any more when this object goes.
  OwnOptions Options();

 private:
  std::vector<OwnOption> List();
  void Take(std::size_t option, const std::string& value);
  OwnChange Try(const std::vector<std::string>& values, std::size_t changed);
  void Apply(const std::vector<std::string>& values);
  std::string SampleLanguage(std::size_t changed) const;
  std::vector<std::string> Languages() const;
  std::vector<std::string> VoiceLabels() const;
  std::string OwnVoice() const;

  Desktop& desktop_;
  SpeechSettings& settings_;
  SpeechChoices trying_;
  std::string language_;  // whose voice is being chosen
};

}  // namespace corvane
