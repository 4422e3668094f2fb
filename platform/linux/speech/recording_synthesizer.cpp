#include "platform/linux/speech/recording_synthesizer.h"

#include <utility>

#include "base/text.h"
#include "platform/linux/speech/speech_text.h"

namespace corvane::desktop {

void SynthesisRecord::Add(Entry entry) {
  const std::lock_guard lock(mutex_);
  entries_.push_back(std::move(entry));
}

std::vector<SynthesisRecord::Entry> SynthesisRecord::Entries() const {
  const std::lock_guard lock(mutex_);
  return entries_;
}

RecordingSynthesizer::RecordingSynthesizer(std::shared_ptr<SynthesisRecord> record,
                                           std::size_t samples_per_character)
    : record_(std::move(record)), sound_(samples_per_character, std::int16_t{1000}) {}

void RecordingSynthesizer::Synthesize(const std::string& text, const VoiceStyle& style,
                                      const Sink& sink) {
  record_->Add({text, style});
  for (std::string_view rest = text; !rest.empty();) {
    text::take_character(rest);
    if (!sink(sound_)) return;
  }
}

}  // namespace corvane::desktop
