#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/linux/speech/audio_output.h"

namespace corvane::desktop {

/// Sound through the desktop's sound server (PulseAudio, or PipeWire by the same
/// protocol) with a buffer of 20 ms. Connects in the background. Without a server,
/// or when it goes, speech runs on a silent clock and the notice is told once. A
/// server that appears later is found when a stream begins.
class PulseOutput : public AudioOutput {
 public:
  /// `server` as libpulse names servers; empty for the user's default. A missing one
  /// is looked for again at most every `retry_after`.
  PulseOutput(const std::string& server, Notice notice,
              std::chrono::milliseconds retry_after = std::chrono::seconds(5));
  ~PulseOutput() override;
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;

  void Begin() override;
  std::size_t Write(std::span<const std::int16_t> samples) override;
  bool Drain() override;
  void Stop() override;

  /// Waits until it is known whether there is a server: whether sound is heard.
  bool WaitConnected();

 private:
  class Link;
  std::unique_ptr<Link> link_;
};

}  // namespace corvane::desktop
