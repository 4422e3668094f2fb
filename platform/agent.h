#pragma once

#include <memory>
#include <string>

#include "base/event.h"

namespace corvane {

/// Names one thing asked of the speaking agent; compared by its id.
struct AgentRequest {
  int id = 0;  ///< unique while the agent lives; 0 is no request
};

/// The animated character that speaks. Requests are carried out one after the
/// other; each ends in one RequestComplete of the agent, never from inside the
/// call that made the request.
class AgentCharacter {
 public:
  virtual ~AgentCharacter() = default;
  /// Shows the character on the screen, without taking the focus.
  virtual AgentRequest Show() = 0;
  /// Speaks text (UTF-8). Tags `\Pit=n\` and `\Spd=n\` at its start set pitch and
  /// speed (words a minute) and are not spoken; without a number they mean the
  /// character's own. `urgent` is only noted in the transcript of what was spoken.
  virtual AgentRequest Speak(const std::string& text, bool urgent = false) = 0;
  /// Drops all requests to speak, the one being spoken too: silence at once.
  virtual void StopSpeak() = 0;
};

/// Loads the character and reports finished requests. Letting go of it silences
/// and hides the character.
class Agent {
 public:
  virtual ~Agent() = default;
  /// Starts loading a character from its file. A missing or broken file raises
  /// RunTimeError with a description for the user.
  virtual AgentRequest Load(const std::string& name, const std::string& file) = 0;
  /// The loaded character of that name; RunTimeError when there is none.
  virtual std::shared_ptr<AgentCharacter> Character(const std::string& name) = 0;

  Event<const AgentRequest&> RequestComplete;
};

}  // namespace corvane
