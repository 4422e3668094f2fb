#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "platform/linux/speech/audio_output.h"
#include "platform/linux/speech/silent_output.h"

namespace corvane::desktop {

/// Writes the sound to a WAV file, at the speed at which it would be heard, so
/// that what is stopped is missing from the file too. The file is whole after
/// every write.
class WavOutput : public AudioOutput {
 public:
  /// Replaces the file; RunTimeError when it cannot be written. A disk that fills
  /// up later is told to `notice`, once, and speech goes on silently.
  WavOutput(const std::string& file, Notice notice,
            std::unique_ptr<PaceClock> clock = MakeRealClock());
  ~WavOutput() override;
  WavOutput(const WavOutput&) = delete;
  WavOutput& operator=(const WavOutput&) = delete;

  void Begin() override { pace_.Begin(); }
  std::size_t Write(std::span<const std::int16_t> samples) override;
  bool Drain() override { return pace_.Drain(); }
  void Stop() override { pace_.Stop(); }

 private:
  bool WriteHeader();
  bool Append(std::span<const std::int16_t> samples);

  SilentOutput pace_;
  Notice notice_;
  std::FILE* file_;
  std::uint32_t sound_bytes_ = 0;
};

}  // namespace corvane::desktop
