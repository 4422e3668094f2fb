#include "platform/linux/speech/linux_voice.h"

#include <utility>

#include "platform/linux/speech/speech_tags.h"

namespace corvane::desktop {

Utterance UtteranceOf(const std::string& tagged, bool urgent) {
  TaggedText parts = ReadSpeechTags(tagged);
  Utterance utterance;
  utterance.text = std::move(parts.text);
  utterance.runs = std::move(parts.runs);
  utterance.pitch = parts.pitch.value_or(kPitchDefault);
  utterance.speed = parts.speed.value_or(kSpeedDefault);
  utterance.manner = parts.manner;
  utterance.sound = parts.sound;
  utterance.urgent = urgent;
  return utterance;
}

std::vector<int> NumbersOf(const std::vector<AgentRequest>& requests) {
  std::vector<int> numbers;
  for (const auto& request : requests) numbers.push_back(request.id);
  return numbers;
}

AgentRequest LinuxVoice::Speak(const std::string& text, bool urgent) {
  return {speech_.Speak(UtteranceOf(text, urgent))};
}

void LinuxVoice::StopSpeak(const std::vector<AgentRequest>& kept) { speech_.Stop(NumbersOf(kept)); }

}  // namespace corvane::desktop
