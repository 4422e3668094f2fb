#pragma once

#include <sys/types.h>

#include <string>

#include "tests/platform/speech/private_sound_server.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {

/// A Speech Dispatcher of one's own, with the module of espeak-ng, that sounds in a sink of
/// one's own.
class PrivateSpeechServer {
 public:
  PrivateSpeechServer() = default;
  ~PrivateSpeechServer() { Kill(); }  ///< ends the server
  PrivateSpeechServer(const PrivateSpeechServer&) = delete;
  PrivateSpeechServer& operator=(const PrivateSpeechServer&) = delete;

  /// Starts it and waits until it answers; false when it does not start.
  bool Start();
  /// It dies at once.
  void Kill();
  /// It hangs from now on.
  void Hang();
  std::string Socket() const { return folder_ / "speechd.sock"; }
  /// A program that starts the server, whatever it is told.
  std::string Starter();
  /// Where the sink is.
  PrivateSoundServer& Sound() { return sound_; }

 private:
  bool Configure();
  std::string CommandLine() const;
  bool WaitUntilItAnswers();
  pid_t Process() const;

  test::TemporaryFolder folder_;
  PrivateSoundServer sound_;
};

}  // namespace corvane::desktop
