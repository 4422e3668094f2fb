#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "platform/linux/speech/sound_format.h"

namespace corvane::desktop {

/// Tells the user something once, in a sentence. May be called on any thread, and
/// must return at once without calling back.
using Notice = std::function<void(const std::string&)>;

/// Where sound goes: one stream after the other of mono 16-bit samples at
/// kSampleRate. Begin, Write and Drain belong to the thread that speaks; Stop
/// may be called on any thread, also while Write or Drain waits.
class AudioOutput {
 public:
  virtual ~AudioOutput() = default;
  /// A new stream follows; returns at once. What was stopped before counts no more.
  virtual void Begin() = 0;
  /// Hands samples to the device, waiting while it holds enough (about 20 ms).
  /// Returns how many of them it took, at least one; 0 when the stream was stopped.
  virtual std::size_t Write(std::span<const std::int16_t> samples) = 0;
  /// Waits until everything written has been heard; false when stopped before.
  virtual bool Drain() = 0;
  /// Silence at once: drops what the device still holds. Until the next Begin
  /// nothing is written any more. Harmless when nothing is playing.
  virtual void Stop() = 0;
};

/// Makes an output that reports lasting trouble (no sound server) to the notice.
using AudioMaker = std::function<std::unique_ptr<AudioOutput>(Notice)>;

/// The output that `choice` names: `null` a silent clock, `wav:FILE` a sound file
/// paced in real time, anything else the sound server, with the silent clock where
/// there is none. RunTimeError when the file cannot be written.
std::unique_ptr<AudioOutput> MakeAudioOutput(const std::string& choice, Notice notice);

}  // namespace corvane::desktop
