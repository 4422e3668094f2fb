#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// What a RecordingSynthesizer was given. Usable on any thread.
class SynthesisRecord {
 public:
  struct Entry {
    std::string text;
    VoiceStyle style;
  };

  void Add(Entry entry);
  std::vector<Entry> Entries() const;

 private:
  mutable std::mutex mutex_;
  std::vector<Entry> entries_;
};

/// Keeps what it is given, for tests, and makes a fixed sound for each character:
/// `samples_per_character` samples of the value 1000.
class RecordingSynthesizer : public Synthesizer {
 public:
  RecordingSynthesizer(std::shared_ptr<SynthesisRecord> record, std::size_t samples_per_character);

  void Synthesize(const std::string& text, const VoiceStyle& style, const Sink& sink) override;

 private:
  std::shared_ptr<SynthesisRecord> record_;
  std::vector<std::int16_t> sound_;
};

}  // namespace corvane::desktop
