#include "tests/platform/speech/private_sound_server.h"

#include <fcntl.h>
#include <pulse/pulseaudio.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <utility>

#include "platform/linux/speech/sound_format.h"

namespace corvane::desktop {

PrivateSoundServer::PrivateSoundServer() = default;

PrivateSoundServer::~PrivateSoundServer() { Kill(); }

bool PrivateSoundServer::Start() {
  Kill();
  ready_ = false;
  ended_ = false;
  log_.clear();
  std::array<int, 2> log_pipe{};
  if (pipe2(log_pipe.data(), O_CLOEXEC) != 0) return false;
  const std::string folder = folder_.Path();
  // Whatever becomes of this program, the daemon ends with it.
  std::vector<std::string> words{
      "setpriv",
      "--pdeathsig",
      "KILL",
      "pulseaudio",
      "-n",
      "--daemonize=no",
      "--exit-idle-time=-1",
      "--use-pid-file=no",
      "--log-target=stderr",
      "--log-level=info",
      "-L",
      "module-null-sink sink_name=test",
      "-L",
      "module-native-protocol-unix auth-anonymous=1 socket=" + folder_ / "native"};
  std::vector<std::string> settings{"PATH=/usr/bin:/bin",
                                    "LC_ALL=C",
                                    "HOME=" + folder,
                                    "XDG_RUNTIME_DIR=" + folder,
                                    "XDG_CONFIG_HOME=" + folder,
                                    "DBUS_SESSION_BUS_ADDRESS=disabled:"};
  const auto pointers = [](std::vector<std::string>& all) {
    std::vector<char*> list;
    for (std::string& one : all) list.push_back(one.data());
    list.push_back(nullptr);
    return list;
  };
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, log_pipe[1], STDERR_FILENO);
  const int failure = posix_spawnp(&process_, words[0].c_str(), &actions, nullptr,
                                   pointers(words).data(), pointers(settings).data());
  posix_spawn_file_actions_destroy(&actions);
  close(log_pipe[1]);
  if (failure != 0) {
    process_ = 0;
    close(log_pipe[0]);
    return false;
  }
  reader_ = std::thread([this, descriptor = log_pipe[0]] { ReadLog(descriptor); });
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, std::chrono::seconds(30), [this] { return ready_ || ended_; });
  return ready_;
}

void PrivateSoundServer::ReadLog(int descriptor) {
  std::array<char, 4096> bytes{};
  for (;;) {
    const ssize_t count = read(descriptor, bytes.data(), bytes.size());
    const std::lock_guard lock(mutex_);
    if (count <= 0) break;
    log_.append(bytes.data(), static_cast<std::size_t>(count));
    ready_ = ready_ || log_.find("Daemon startup complete") != std::string::npos;
    changed_.notify_all();
  }
  close(descriptor);
  const std::lock_guard lock(mutex_);
  ended_ = true;
  changed_.notify_all();
}

void PrivateSoundServer::Kill() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }
  if (reader_.joinable()) reader_.join();
}

std::string PrivateSoundServer::Log() {
  const std::lock_guard lock(mutex_);
  return log_;
}

/// libpulse calls back on its own thread with the loop's lock held.
class SinkListener::Link {
 public:
  Link(const std::string& server, Heard heard) : heard_(std::move(heard)) {
    pa_threaded_mainloop_start(loop_);
    pa_threaded_mainloop_lock(loop_);
    context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), "listener");
    pa_context_set_state_callback(
        context_, [](pa_context*, void* self) { static_cast<Link*>(self)->OnContext(); }, this);
    pa_context_connect(context_, server.c_str(), PA_CONTEXT_NOAUTOSPAWN, nullptr);
    pa_threaded_mainloop_unlock(loop_);
  }

  ~Link() {
    pa_threaded_mainloop_lock(loop_);
    if (stream_ != nullptr) {
      pa_stream_set_read_callback(stream_, nullptr, nullptr);
      pa_stream_set_state_callback(stream_, nullptr, nullptr);
      pa_stream_disconnect(stream_);
      pa_stream_unref(stream_);
    }
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    pa_threaded_mainloop_unlock(loop_);
    pa_threaded_mainloop_stop(loop_);
    pa_threaded_mainloop_free(loop_);
  }

  bool WaitReady() {
    pa_threaded_mainloop_lock(loop_);
    while (!delivering_ && !failed_) pa_threaded_mainloop_wait(loop_);
    const bool ready = delivering_;
    pa_threaded_mainloop_unlock(loop_);
    return ready;
  }

 private:
  void OnContext() {
    const pa_context_state_t state = pa_context_get_state(context_);
    if (state == PA_CONTEXT_FAILED || state == PA_CONTEXT_TERMINATED) Fail();
    if (state != PA_CONTEXT_READY) return;
    const pa_sample_spec format{PA_SAMPLE_S16NE, kSampleRate, 1};
    stream_ = pa_stream_new(context_, "listener", &format, nullptr);
    pa_stream_set_state_callback(
        stream_,
        [](pa_stream* stream, void* self) {
          if (pa_stream_get_state(stream) == PA_STREAM_FAILED) static_cast<Link*>(self)->Fail();
        },
        this);
    pa_stream_set_read_callback(
        stream_, [](pa_stream*, std::size_t, void* self) { static_cast<Link*>(self)->OnSound(); },
        this);
    const auto any = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffer{any, any, any, any, kSampleRate / 500 * 2};  // 2 ms pieces
    pa_stream_connect_record(stream_, "test.monitor", &buffer, PA_STREAM_ADJUST_LATENCY);
  }

  void OnSound() {
    while (pa_stream_readable_size(stream_) > 0) {
      const void* data = nullptr;
      std::size_t bytes = 0;
      if (pa_stream_peek(stream_, &data, &bytes) < 0 || bytes == 0) return;
      if (data != nullptr) {
        const auto* first = static_cast<const std::int16_t*>(data);
        heard_({first, first + bytes / 2});
      }
      pa_stream_drop(stream_);
    }
    delivering_ = true;
    pa_threaded_mainloop_signal(loop_, 0);
  }

  void Fail() {
    failed_ = true;
    pa_threaded_mainloop_signal(loop_, 0);
  }

  Heard heard_;
  pa_threaded_mainloop* loop_ = pa_threaded_mainloop_new();
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;
  bool delivering_ = false;
  bool failed_ = false;
};

SinkListener::SinkListener(const std::string& server, Heard heard)
    : link_(std::make_unique<Link>(server, std::move(heard))) {}

SinkListener::~SinkListener() = default;

bool SinkListener::WaitReady() { return link_->WaitReady(); }

}  // namespace corvane::desktop
