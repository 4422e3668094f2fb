#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/temporary_folder.h"

namespace corvane::desktop {

/// A PulseAudio daemon of one's own with a sink that sounds nowhere.
class PrivateSoundServer {
 public:
  PrivateSoundServer();
  ~PrivateSoundServer();  ///< ends the daemon
  PrivateSoundServer(const PrivateSoundServer&) = delete;
  PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

  /// Starts the daemon, once more if it was killed, and waits until it is ready;
  /// false when it does not start (Log says why).
  bool Start();
  /// The daemon dies at once.
  void Kill();
  /// How libpulse names the server.
  std::string Address() const { return "unix:" + folder_ / "native"; }
  std::string Log();

 private:
  void ReadLog(int descriptor);

  test::TemporaryFolder folder_;
  pid_t process_ = 0;
  std::thread reader_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string log_;
  bool ready_ = false;
  bool ended_ = false;
};

/// Listens to what the sink of a private server plays.
class SinkListener {
 public:
  /// `heard` is called on a thread of its own with mono samples at `kSampleRate`.
  using Heard = std::function<void(const std::vector<std::int16_t>&)>;

  SinkListener(const std::string& server, Heard heard);
  ~SinkListener();
  SinkListener(const SinkListener&) = delete;
  SinkListener& operator=(const SinkListener&) = delete;

  /// Waits until the server delivers; false when it refuses.
  bool WaitReady();

 private:
  class Link;
  std::unique_ptr<Link> link_;
};

}  // namespace corvane::desktop
