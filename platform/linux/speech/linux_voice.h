#pragma once

#include <string>
#include <vector>

#include "platform/linux/speech/speech_output.h"
#include "platform/voice.h"

namespace corvane::desktop {

/// What a text with tags at its start asks for, in the synthesizer's own voice.
Utterance UtteranceOf(const std::string& tagged, bool urgent);

/// The numbers of requests.
std::vector<int> NumbersOf(const std::vector<AgentRequest>& requests);

/// Speaks through the program's speech output, without any character.
class LinuxVoice : public Voice {
 public:
  /// `speech` must outlive the voice.
  explicit LinuxVoice(SpeechOutput& speech) : speech_(speech) {}

  AgentRequest Speak(const std::string& text, bool urgent) override;
  void StopSpeak(const std::vector<AgentRequest>& kept) override;

 private:
  SpeechOutput& speech_;
};

}  // namespace corvane::desktop
