#include "platform/linux/speech/pulse_output.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <utility>

#include "platform/linux/speech/main_loop_lock.h"
#include "platform/linux/speech/silent_output.h"

namespace corvane::desktop {
namespace {

constexpr std::uint32_t kBytesPerSample = sizeof(std::int16_t);
/// What the server may hold: 20 ms, refilled in steps of 5 ms.
constexpr std::uint32_t kTargetBytes = kSampleRate / 50 * kBytesPerSample;
constexpr std::uint32_t kRefillBytes = kSampleRate / 200 * kBytesPerSample;

/// A server that has not answered after so long is treated as missing.
constexpr pa_usec_t kConnectLimit = 2 * PA_USEC_PER_SEC;

}  // namespace

/// The connection to the server. Every member is guarded by the loop's lock;
/// libpulse calls back on its own thread with that lock held.
class PulseOutput::Link {
 public:
  Link(std::string server, Notice notice, pa_usec_t retry_after);
  ~Link();

  void Begin();
  std::size_t Write(std::span<const std::int16_t> samples);
  bool Drain();
  void Stop();
  bool WaitConnected();

 private:
  enum class Phase { kConnecting, kReady, kLost };

  void Connect();
  void Disconnect();
  void Lose();
  void OpenStream();
  void OnContextState();
  void OnStreamState();
  void Wake() { pa_threaded_mainloop_signal(loop_, 0); }
  void Wait() { pa_threaded_mainloop_wait(loop_); }

  std::string server_;
  Notice notice_;
  pa_usec_t retry_after_;
  pa_threaded_mainloop* loop_;
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;
  pa_time_event* limit_ = nullptr;
  Phase phase_ = Phase::kLost;
  bool told_ = false;
  bool stopped_ = true;
  bool on_clock_ = false;  ///< the present stream runs on the silent clock
  pa_usec_t lost_at_ = 0;
  SilentOutput clock_;
};

PulseOutput::Link::Link(std::string server, Notice notice, pa_usec_t retry_after)
    : server_(std::move(server)),
      notice_(std::move(notice)),
      retry_after_(retry_after),
      loop_(pa_threaded_mainloop_new()) {
  pa_threaded_mainloop_set_name(loop_, "speech-audio");
  pa_threaded_mainloop_start(loop_);
  const MainLoopLock lock(loop_);
  Connect();
}

PulseOutput::Link::~Link() {
  {
    const MainLoopLock lock(loop_);
    Disconnect();
  }
  pa_threaded_mainloop_stop(loop_);
  pa_threaded_mainloop_free(loop_);
}

void PulseOutput::Link::Connect() {
  Disconnect();
  phase_ = Phase::kConnecting;
  pa_mainloop_api* api = pa_threaded_mainloop_get_api(loop_);
  pa_proplist* about = pa_proplist_new();
  pa_proplist_sets(about, PA_PROP_APPLICATION_NAME, "Corvane");
  pa_proplist_sets(about, PA_PROP_APPLICATION_ID, "org.corvane.Corvane");
  // Not as loud as the pages were last (PulsePageSound), but as this kind of stream was.
  pa_proplist_sets(about, "module-stream-restore.id", "sink-input-by-media-role:a11y");
  context_ = pa_context_new_with_proplist(api, nullptr, about);
  pa_proplist_free(about);
  pa_context_set_state_callback(
      context_, [](pa_context*, void* self) { static_cast<Link*>(self)->OnContextState(); }, this);
  const pa_usec_t limit = pa_rtclock_now() + kConnectLimit;
  limit_ = pa_context_rttime_new(
      context_, limit,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        auto* link = static_cast<Link*>(self);
        if (link->phase_ == Phase::kConnecting) link->Lose();
      },
      this);
  // Starting a server is the desktop's job and would make this call slow.
  if (pa_context_connect(context_, server_.empty() ? nullptr : server_.c_str(),
                         PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    Lose();
  }
}

void PulseOutput::Link::Disconnect() {
  if (limit_ != nullptr) {
    pa_threaded_mainloop_get_api(loop_)->time_free(limit_);
    limit_ = nullptr;
  }
  if (stream_ != nullptr) {
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
    stream_ = nullptr;
  }
  if (context_ != nullptr) {
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    context_ = nullptr;
  }
}

/// Only marks the loss: libpulse may be inside the objects that would be freed.
/// They go with the next attempt or with the link.
void PulseOutput::Link::Lose() {
  phase_ = Phase::kLost;
  lost_at_ = pa_rtclock_now();
  if (!told_ && notice_) {
    notice_("There is no sound: the sound server cannot be reached. Speech goes on silently.");
  }
  told_ = true;
  Wake();
}

void PulseOutput::Link::OnContextState() {
  switch (pa_context_get_state(context_)) {
    case PA_CONTEXT_READY:
      OpenStream();
      break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
      if (phase_ != Phase::kLost) Lose();
      break;
    default:
      break;
  }
}

void PulseOutput::Link::OpenStream() {
  if (phase_ != Phase::kConnecting) return;
  const pa_sample_spec format{PA_SAMPLE_S16NE, kSampleRate, 1};
  pa_proplist* about = pa_proplist_new();
  pa_proplist_sets(about, PA_PROP_MEDIA_ROLE, "a11y");
  stream_ = pa_stream_new_with_proplist(context_, "Speech", &format, nullptr, about);
  pa_proplist_free(about);
  if (stream_ == nullptr) {
    Lose();
    return;
  }
  pa_stream_set_state_callback(
      stream_, [](pa_stream*, void* self) { static_cast<Link*>(self)->OnStreamState(); }, this);
  pa_stream_set_write_callback(
      stream_, [](pa_stream*, std::size_t, void* self) { static_cast<Link*>(self)->Wake(); }, this);
  // One sample starts the playback; after the last one it waits for the next.
  const pa_buffer_attr buffer{static_cast<std::uint32_t>(-1), kTargetBytes, kBytesPerSample,
                              kRefillBytes, static_cast<std::uint32_t>(-1)};
  if (pa_stream_connect_playback(stream_, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr,
                                 nullptr) < 0) {
    Lose();
  }
}

void PulseOutput::Link::OnStreamState() {
  switch (pa_stream_get_state(stream_)) {
    case PA_STREAM_READY:
      if (phase_ == Phase::kConnecting) phase_ = Phase::kReady;
      Wake();
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      if (phase_ != Phase::kLost) Lose();
      break;
    default:
      break;
  }
}

void PulseOutput::Link::Begin() {
  const MainLoopLock lock(loop_);
  stopped_ = false;
  // Only the first attempt to connect is worth waiting for.
  on_clock_ = phase_ == Phase::kLost || (phase_ == Phase::kConnecting && told_);
  clock_.Begin();
  if (phase_ == Phase::kLost && pa_rtclock_now() - lost_at_ >= retry_after_) Connect();
}

std::size_t PulseOutput::Link::Write(std::span<const std::int16_t> samples) {
  {
    const MainLoopLock lock(loop_);
    while (!stopped_ && !on_clock_) {
      if (phase_ == Phase::kLost) {
        on_clock_ = true;
        break;
      }
      const std::size_t room = phase_ == Phase::kReady ? pa_stream_writable_size(stream_) : 0;
      if (room == static_cast<std::size_t>(-1)) {
        Lose();
      } else if (room < kBytesPerSample) {
        Wait();
      } else {
        const std::size_t count = std::min(samples.size(), room / kBytesPerSample);
        if (pa_stream_write(stream_, samples.data(), count * kBytesPerSample, nullptr, 0,
                            PA_SEEK_RELATIVE) == 0) {
          return count;
        }
        Lose();
      }
    }
    if (stopped_) return 0;
  }
  return clock_.Write(samples);
}

bool PulseOutput::Link::Drain() {
  {
    const MainLoopLock lock(loop_);
    if (!on_clock_ && phase_ == Phase::kReady && !stopped_) {
      pa_operation* played = pa_stream_drain(
          stream_, [](pa_stream*, int, void* self) { static_cast<Link*>(self)->Wake(); }, this);
      while (played != nullptr && !stopped_ && phase_ == Phase::kReady &&
             pa_operation_get_state(played) == PA_OPERATION_RUNNING) {
        Wait();
      }
      if (played != nullptr) {
        pa_operation_cancel(played);
        pa_operation_unref(played);
      }
      return !stopped_;
    }
    if (stopped_) return false;
  }
  return clock_.Drain();
}

void PulseOutput::Link::Stop() {
  const MainLoopLock lock(loop_);
  const bool playing = !stopped_;
  stopped_ = true;
  if (playing && phase_ == Phase::kReady) {
    if (pa_operation* flush = pa_stream_flush(stream_, nullptr, nullptr)) pa_operation_unref(flush);
  }
  clock_.Stop();
  Wake();
}

bool PulseOutput::Link::WaitConnected() {
  const MainLoopLock lock(loop_);
  while (phase_ == Phase::kConnecting) Wait();
  return phase_ == Phase::kReady;
}

PulseOutput::PulseOutput(const std::string& server, Notice notice,
                         std::chrono::milliseconds retry_after)
    : link_(
          std::make_unique<Link>(server, std::move(notice),
                                 static_cast<pa_usec_t>(retry_after.count()) * PA_USEC_PER_MSEC)) {}

PulseOutput::~PulseOutput() = default;

void PulseOutput::Begin() { link_->Begin(); }
std::size_t PulseOutput::Write(std::span<const std::int16_t> samples) {
  return link_->Write(samples);
}
bool PulseOutput::Drain() { return link_->Drain(); }
void PulseOutput::Stop() { link_->Stop(); }
bool PulseOutput::WaitConnected() { return link_->WaitConnected(); }

}  // namespace corvane::desktop
