#include "platform/linux/speech/pulse_page_sound.h"

#include <pulse/pulseaudio.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

#include "platform/linux/speech/main_loop_lock.h"

namespace corvane::desktop {
namespace {

constexpr const char* kMark = "corvane.pages-of";
constexpr std::string_view kPageProcess = "WebKit";
constexpr int kFull = 100;

// From full to nothing in a quarter of a second, in steps too small to be heard.
constexpr pa_usec_t kStepTime = 5 * PA_USEC_PER_MSEC;
constexpr double kStep = 0.02;

std::string OwnMark() { return std::to_string(getpid()); }

/// libpulse puts what these say into what the server knows of each stream of a process.
void MarkPages() {
  setenv(("PULSE_PROP_" + std::string(kMark)).c_str(), OwnMark().c_str(), 1);
  // The server keeps how loud a kind of stream was last; pages that were low must not make
  // other programs' music so.
  setenv("PULSE_PROP_module-stream-restore.id", "corvane-pages", 1);
}

}  // namespace

/// The connection. Every member is guarded by the loop's lock, with which libpulse calls
/// back on its own thread.
class PulsePageSound::Link {
 public:
  Link(const std::string& server, int level);
  ~Link();

  void SetLevel(int percent);
  void Connect();

 private:
  /// A stream of a page.
  struct Stream {
    pa_cvolume full{};  ///< as loud as it is by itself
    double level = 1;   ///< the part of that at which it is
    bool is_known = false;
  };

  void Disconnect();
  void OnState();
  /// Whether a stream sounded already when it was heard of.
  enum class Seen { kSounding, kNew };
  void OnStream(const pa_sink_input_info& info, Seen seen);
  void AskForAll();
  void Ask(std::uint32_t index);
  void Step();
  void StepSoon();
  pa_operation* Apply(std::uint32_t index, const Stream& stream,
                      pa_context_success_cb_t done = nullptr);
  static void Forget(pa_operation* operation) {
    if (operation != nullptr) pa_operation_unref(operation);
  }

  const std::string server_;
  const std::string mark_ = OwnMark();
  pa_threaded_mainloop* loop_ = pa_threaded_mainloop_new();
  pa_context* context_ = nullptr;
  pa_time_event* next_ = nullptr;
  bool steps_ = false;  // it is on its way to the target
  double target_;
  std::map<std::uint32_t, Stream> streams_;
};

PulsePageSound::Link::Link(const std::string& server, int level)
    : server_(server), target_(level / 100.0) {
  pa_threaded_mainloop_set_name(loop_, "page-sound");
  pa_threaded_mainloop_start(loop_);
  Connect();
}

PulsePageSound::Link::~Link() {
  {
    const MainLoopLock lock(loop_);
    Disconnect();
  }
  pa_threaded_mainloop_stop(loop_);
  pa_threaded_mainloop_free(loop_);
}

void PulsePageSound::Link::Connect() {
  const MainLoopLock lock(loop_);
  if (context_ != nullptr && PA_CONTEXT_IS_GOOD(pa_context_get_state(context_))) return;
  Disconnect();
  pa_proplist* about = pa_proplist_new();
  pa_proplist_sets(about, PA_PROP_APPLICATION_NAME, "Corvane");
  pa_proplist_sets(about, PA_PROP_APPLICATION_ID, "org.corvane.Corvane");
  context_ = pa_context_new_with_proplist(pa_threaded_mainloop_get_api(loop_), "Page sound", about);
  pa_proplist_free(about);
  pa_context_set_state_callback(
      context_, [](pa_context*, void* self) { static_cast<Link*>(self)->OnState(); }, this);
  pa_context_connect(context_, server_.empty() ? nullptr : server_.c_str(), PA_CONTEXT_NOAUTOSPAWN,
                     nullptr);
}

void PulsePageSound::Link::Disconnect() {
  if (next_ != nullptr) {
    pa_threaded_mainloop_get_api(loop_)->time_free(std::exchange(next_, nullptr));
  }
  streams_.clear();
  steps_ = false;
  if (context_ == nullptr) return;
  pa_context_set_state_callback(context_, nullptr, nullptr);
  pa_context_set_subscribe_callback(context_, nullptr, nullptr);
  pa_context_disconnect(context_);
  pa_context_unref(std::exchange(context_, nullptr));
}

void PulsePageSound::Link::OnState() {
  if (pa_context_get_state(context_) != PA_CONTEXT_READY) return;
  pa_context_set_subscribe_callback(
      context_,
      [](pa_context*, pa_subscription_event_type_t event, std::uint32_t index, void* self) {
        auto* link = static_cast<Link*>(self);
        if ((event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_REMOVE) {
          link->streams_.erase(index);
        } else {
          link->Ask(index);
        }
      },
      this);
  Forget(pa_context_subscribe(context_, PA_SUBSCRIPTION_MASK_SINK_INPUT, nullptr, nullptr));
  AskForAll();
}

void PulsePageSound::Link::AskForAll() {
  Forget(pa_context_get_sink_input_info_list(
      context_,
      [](pa_context*, const pa_sink_input_info* info, int end, void* self) {
        if (end == 0 && info != nullptr) static_cast<Link*>(self)->OnStream(*info, Seen::kSounding);
      },
      this));
}

void PulsePageSound::Link::Ask(std::uint32_t index) {
  Forget(pa_context_get_sink_input_info(
      context_, index,
      [](pa_context*, const pa_sink_input_info* info, int end, void* self) {
        if (end == 0 && info != nullptr) static_cast<Link*>(self)->OnStream(*info, Seen::kNew);
      },
      this));
}

void PulsePageSound::Link::OnStream(const pa_sink_input_info& info, Seen seen) {
  const char* mark = pa_proplist_gets(info.proplist, kMark);
  const char* program = pa_proplist_gets(info.proplist, PA_PROP_APPLICATION_PROCESS_BINARY);
  // All processes of this one have the mark, also itself.
  if (mark == nullptr || mark_ != mark || program == nullptr) return;
  if (!std::string_view(program).starts_with(kPageProcess)) return;
  Stream& stream = streams_[info.index];
  if (!stream.is_known) {
    // What the server remembers may be a level of ours.
    pa_cvolume_set(&stream.full, info.volume.channels, PA_VOLUME_NORM);
    stream.is_known = true;
    if (seen == Seen::kNew) stream.level = target_;
    Forget(Apply(info.index, stream));
    if (!steps_) Step();
  } else if (stream.level >= 1 && target_ >= 1) {
    stream.full = info.volume;  // as the user wants it
  }
}

void PulsePageSound::Link::SetLevel(int percent) {
  const MainLoopLock lock(loop_);
  target_ = percent / 100.0;
  if (!steps_) Step();
}

// A server that is behind must not make one large step of several: each waits until the one
// before has been carried out.
void PulsePageSound::Link::Step() {
  pa_operation* applied = nullptr;
  for (auto& [index, stream] : streams_) {
    if (stream.level == target_) continue;
    stream.level = stream.level < target_ ? std::min(stream.level + kStep, target_)
                                          : std::max(stream.level - kStep, target_);
    Forget(std::exchange(applied, Apply(index, stream, [](pa_context*, int, void* self) {
                           static_cast<Link*>(self)->StepSoon();
                         })));
  }
  steps_ = applied != nullptr;
  Forget(applied);
}

void PulsePageSound::Link::StepSoon() {
  if (next_ != nullptr) return;
  next_ = pa_context_rttime_new(
      context_, pa_rtclock_now() + kStepTime,
      [](pa_mainloop_api* api, pa_time_event* event, const timeval*, void* self) {
        auto* link = static_cast<Link*>(self);
        api->time_free(event);
        link->next_ = nullptr;
        link->Step();
      },
      this);
}

pa_operation* PulsePageSound::Link::Apply(std::uint32_t index, const Stream& stream,
                                          pa_context_success_cb_t done) {
  if (context_ == nullptr || pa_context_get_state(context_) != PA_CONTEXT_READY) return nullptr;
  pa_cvolume volume = stream.full;
  pa_sw_cvolume_multiply_scalar(&volume, &stream.full, pa_sw_volume_from_linear(stream.level));
  return pa_context_set_sink_input_volume(context_, index, &volume, done, this);
}

PulsePageSound::PulsePageSound(const std::string& server) : server_(server) { MarkPages(); }

PulsePageSound::~PulsePageSound() = default;

void PulsePageSound::SetLevel(int percent) {
  level_ = std::clamp(percent, 0, kFull);
  if (link_) link_->SetLevel(level_);
}

void PulsePageSound::PageSounds() {
  if (!link_) link_ = std::make_unique<Link>(server_, level_);
  link_->Connect();
}

}  // namespace corvane::desktop
