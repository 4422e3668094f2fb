#pragma once

#include <memory>
#include <string>

#include "platform/agent.h"
#include "platform/linux/speech/speech_output.h"

namespace corvane::desktop {

/// The speaking agent: a character from its file, drawn in a small window that
/// never takes the focus, speaking through the program's speech output. Its
/// requests count with those of the speech output, so that a request to speak
/// has the number that the transcript gives it.
class LinuxAgent : public Agent {
 public:
  /// `speech` must outlive the agent.
  explicit LinuxAgent(SpeechOutput& speech);
  ~LinuxAgent() override;

  AgentRequest Load(const std::string& name, const std::string& file) override;
  std::shared_ptr<AgentCharacter> Character(const std::string& name) override;

 private:
  class SpeakingCharacter;

  /// A request that is done already; told so from the main loop.
  AgentRequest CompleteLater();

  SpeechOutput& speech_;
  std::shared_ptr<SpeakingCharacter> character_;
  LoopQueue loop_;
};

}  // namespace corvane::desktop
