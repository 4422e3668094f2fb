#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/linux/speech/audio_output.h"

namespace corvane::desktop {

/// What a RecordingAudio was given, and how much of it it may take. Usable on any
/// thread.
struct AudioRecord {
  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::int16_t> samples;
  int streams = 0;
  int stops = 0;
  bool stopped = true;
  bool silent_end = true;  ///< nothing was written after the last stop
  std::size_t room = static_cast<std::size_t>(-1);

  std::size_t Count() {
    const std::lock_guard lock(mutex);
    return samples.size();
  }
  int Stops() {
    const std::lock_guard lock(mutex);
    return stops;
  }
  int Streams() {
    const std::lock_guard lock(mutex);
    return streams;
  }
  bool SilentEnd() {
    const std::lock_guard lock(mutex);
    return silent_end;
  }
  /// The device takes so many samples more and then holds still.
  void SetRoom(std::size_t more) {
    const std::lock_guard lock(mutex);
    room = more;
    changed.notify_all();
  }
};

/// A device for tests: keeps everything at once, as far as its room goes.
class RecordingAudio : public AudioOutput {
 public:
  explicit RecordingAudio(std::shared_ptr<AudioRecord> record) : record_(std::move(record)) {}

  void Begin() override {
    const std::lock_guard lock(record_->mutex);
    ++record_->streams;
    record_->stopped = false;
    record_->silent_end = true;
  }

  std::size_t Write(std::span<const std::int16_t> samples) override {
    std::unique_lock lock(record_->mutex);
    record_->changed.wait(lock, [&] { return record_->stopped || record_->room > 0; });
    if (record_->stopped) return 0;
    const std::size_t taken = std::min(samples.size(), record_->room);
    record_->room -= taken;
    record_->samples.insert(record_->samples.end(), samples.begin(), samples.begin() + taken);
    record_->silent_end = false;
    return taken;
  }

  bool Drain() override {
    std::unique_lock lock(record_->mutex);
    record_->changed.wait(lock, [&] { return record_->stopped || record_->room > 0; });
    return !record_->stopped;
  }

  void Stop() override {
    const std::lock_guard lock(record_->mutex);
    ++record_->stops;
    record_->stopped = true;
    record_->silent_end = true;
    record_->changed.notify_all();
  }

 private:
  std::shared_ptr<AudioRecord> record_;
};

}  // namespace corvane::desktop
