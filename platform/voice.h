#pragma once

#include <string>
#include <vector>

namespace corvane {

/// Names one thing asked of the speaking agent or of a voice; compared by its id.
struct AgentRequest {
  int id = 0;  ///< unique in the process; 0 is no request
};

/// Speaks one text after the other. All voices of the process share one queue.
class Voice {
 public:
  virtual ~Voice() = default;
  /// Speaks text (UTF-8). Tags `\Pit=n\` and `\Spd=n\` at its start set pitch and
  /// speed (words a minute) and are not spoken; without a number they mean the
  /// voice's own. A tag `\Lng=de\` anywhere says which language follows; without a
  /// name it is the voice's own. Where no voice speaks it, the voice's own does.
  /// `urgent` is only noted in the transcript of what was spoken.
  virtual AgentRequest Speak(const std::string& text, bool urgent = false) = 0;
  /// Drops all requests to speak, whichever voice was asked, the one being spoken
  /// too, but not those `kept`: silence at once, or the next of these.
  virtual void StopSpeak(const std::vector<AgentRequest>& kept = {}) = 0;
};

}  // namespace corvane
