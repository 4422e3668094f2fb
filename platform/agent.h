#pragma once

#include <memory>
#include <string>

#include "base/event.h"
#include "platform/voice.h"

namespace corvane {

/// How a request ended.
enum class RequestEnd {
  Done,  ///< carried out; words: spoken to their end
  Cut,   ///< dropped, or ended before its end
};

/// The animated character that speaks. Requests are carried out one after the
/// other; each ends in one RequestComplete of the agent, never from inside the
/// call that made or dropped the request.
class AgentCharacter : public Voice {
 public:
  /// Shows the character on the screen, without taking the focus.
  virtual AgentRequest Show() = 0;
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

  Event<const AgentRequest&, RequestEnd> RequestComplete;
};

}  // namespace corvane
