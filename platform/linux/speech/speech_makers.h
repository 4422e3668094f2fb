#pragma once

#include <memory>

#include "base/event.h"
#include "platform/linux/speech/speech_output.h"
#include "platform/voice.h"

namespace corvane::desktop {

/// Who makes the sound of the program's speech, and which voices that one has.
class SpeechMakers {
 public:
  /// `speech` must outlive this object.
  explicit SpeechMakers(SpeechOutput& speech);

  /// As Desktop has them.
  void SpeakThrough(SpeechMaker maker);
  SpeechMaker InUse() const { return in_use_; }
  const InstalledVoices& Voices();
  Event<SpeechMaker> Lost;

 private:
  void DispatcherIs(SpeechServer::State state);
  void AskForVoices();

  SpeechOutput& speech_;
  SpeechMaker asked_ = SpeechMaker::BuiltIn;
  SpeechMaker in_use_ = SpeechMaker::BuiltIn;
  InstalledVoices own_;          // none: not read yet
  InstalledVoices dispatchers_;  // none: not known yet
  bool asked_for_voices_ = false;
  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
  Connection connection_;
};

}  // namespace corvane::desktop
