#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "base/event.h"
#include "platform/linux/speech/audio_output.h"
#include "platform/linux/speech/loop_queue.h"
#include "platform/linux/speech/speech_server.h"
#include "platform/linux/speech/synthesizer.h"
#include "platform/linux/speech/transcript.h"
#include "platform/linux/speech/utterance.h"

namespace corvane::desktop {

/// How a request to speak ended.
enum class SpeechEnd { kSpoken, kCut };

/// Speaks one text after the other. Belongs to the user-interface thread: it is
/// made, called and destroyed there, and reports there, from the main loop.
/// Synthesis and sound run on a thread of their own. One a process.
class SpeechOutput {
 public:
  using Begun = std::function<void()>;
  using Ended = std::function<void(SpeechEnd)>;

  /// Requests that may wait; one more cuts the one that has waited longest.
  static constexpr std::size_t kMostWaiting = 256;

  /// `transcript` as for Transcript; a file that cannot be opened is a notice.
  SpeechOutput(SynthesizerMaker make_synthesizer, const AudioMaker& make_audio,
               const std::string& transcript = "");
  ~SpeechOutput();
  SpeechOutput(const SpeechOutput&) = delete;
  SpeechOutput& operator=(const SpeechOutput&) = delete;

  /// A number for a request that is not speech, from the same count.
  int NextRequest() { return ++last_request_; }

  /// Queues the text and returns at once with its request number. `begun` is
  /// called when its first samples were handed to the device, `ended` once when it
  /// is over; never from inside this call or Stop.
  int Speak(Utterance utterance, Begun begun = nullptr, Ended ended = nullptr);

  /// Empties the queue and what the device holds, but for the requests `kept`:
  /// silence at once, or the first of these.
  void Stop(const std::vector<int>& kept = {});

  /// From now on a speech server speaks, with its own sound; without one the synthesizer
  /// does, as it does while the server starts, and when it is lost: then it goes on with
  /// the words that have not been said. Returns at once.
  void SpeakThrough(std::unique_ptr<SpeechServer> server);

  /// Whether anything is being said, when that changes. Raised from the main loop.
  Event<bool> Speaking;
  /// How the present speech server is, when that changes. Raised from the main loop.
  Event<SpeechServer::State> ServerIs;
  /// Something the user should be told once, in a sentence (no sound server, no
  /// synthesizer): for the log and the status bar.
  Event<const std::string&> Notified;

 private:
  struct Request;

  void Run();
  std::unique_ptr<Synthesizer> MakeSynthesizer();
  void TakeServer();
  bool PrepareServer();
  void ServerBecomes(SpeechServer::State state);
  bool Render(Synthesizer& synthesizer, Request& request);
  bool RenderThroughServer(Request& request, SpokenRun& run);
  void TellBegun(Request& request);
  bool Hand(std::span<const std::int16_t> samples, Request& request);
  void SpeakingLocked(bool speaking);
  void FinishLocked(Request& request, SpeechEnd end);

  std::mutex mutex_;
  std::condition_variable wake_;
  bool closing_ = false;
  std::deque<std::shared_ptr<Request>> waiting_;
  std::shared_ptr<Request> current_;
  bool speaking_ = false;                      // as it was told last
  std::shared_ptr<SpeechServer> next_server_;  // who is to speak; null: the synthesizer
  bool other_server_ = false;                  // the worker does not know of it yet

  // The worker's, but for Wake.
  std::shared_ptr<SpeechServer> server_;
  SpeechServer::State server_state_ = SpeechServer::State::kLost;

  int last_request_ = 0;
  SynthesizerMaker make_synthesizer_;
  LoopQueue loop_;
  std::unique_ptr<Transcript> transcript_;
  std::unique_ptr<AudioOutput> audio_;
  std::thread worker_;
};

/// The program's speech: espeak-ng, the output that CORVANE_AUDIO names and the
/// transcript that CORVANE_TRANSCRIPT names.
std::unique_ptr<SpeechOutput> MakeSpeechOutput();

}  // namespace corvane::desktop
