#pragma once

#include <string>
#include <vector>

namespace corvane {

/// Names one thing asked of the speaking agent or of a voice; compared by its id.
struct AgentRequest {
  int id = 0;  ///< unique in the process; 0 is no request
};

/// Who makes the sound of what is said.
enum class SpeechMaker {
  BuiltIn,
  SpeechDispatcher,  ///< the desktop's speech server, with whatever synthesizers it has
};

/// A voice that is there.
struct InstalledVoice {
  std::string name;      ///< what asks for it
  std::string language;  ///< language::Tag
  std::string label;     ///< for people: "English (America)"
};

/// All voices that are there, and the variants that each can be had in; both in the order
/// in which they are offered. Nothing: which there are is not known.
struct InstalledVoices {
  std::vector<InstalledVoice> voices;
  std::vector<std::string> variants;
};

/// Speaks one text after the other. All voices of the process share one queue.
class Voice {
 public:
  virtual ~Voice() = default;
  /// Speaks text (UTF-8). Tags `\Pit=n\` and `\Spd=n\` at its start set pitch and
  /// speed (words a minute) and are not spoken; without a number they mean the
  /// voice's own. So do `\Rng=n\` (how far the pitch goes up and down, 0 to 100, usually
  /// 50), `\Vol=n\` (percent), `\Pun=n\` (marks that are named: 0 none but a lone one, 1
  /// those that stand alone, 2 most, 3 all), `\Cap=n\` (capitals: 0 as small letters, 1 by
  /// a higher pitch, 2 by a word), `\Dig=1\` (digits one by one) and `\Snd=n\` (a sound
  /// instead of the words: 1 at work, 2 done). A tag `\Lng=de\` anywhere says which
  /// language follows; without a name it is the voice's own. Where no voice speaks it, the
  /// voice's own does. A tag `\Vce=en-us+f2\` anywhere says who speaks what follows, a
  /// voice and behind the plus a variant of it; what has no name is as it would be anyway.
  /// `urgent` is only noted in the transcript of what was spoken.
  virtual AgentRequest Speak(const std::string& text, bool urgent = false) = 0;
  /// Drops all requests to speak, whichever voice was asked, the one being spoken
  /// too, but not those `kept`: silence at once, or the next of these.
  virtual void StopSpeak(const std::vector<AgentRequest>& kept = {}) = 0;
};

}  // namespace corvane
