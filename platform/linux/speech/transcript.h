#pragma once

#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/linux/speech/utterance.h"

namespace corvane::desktop {

/// Writes what is spoken as one JSON object a line, each line at once. For tests
/// and for whoever wants to know what was said; it holds everything that was
/// spoken, so it is off unless a file is named. Usable on any thread.
class Transcript {
 public:
  /// Appends to the file; `-` is standard output, empty is no transcript.
  /// RunTimeError when the file cannot be opened.
  explicit Transcript(const std::string& file = "");
  ~Transcript();
  Transcript(const Transcript&) = delete;
  Transcript& operator=(const Transcript&) = delete;

  /// The request was accepted; pitch and speed as they were asked for. What says no
  /// language is in the voice's `own`.
  void Speak(int id, const Utterance& utterance, const std::string& own = "");
  /// Its first samples were handed to the device, or a speech server has begun with it.
  void Begin(int id, bool by_server = false);
  /// The speech server was lost and has not said this; it is said now.
  void Rest(int id, const std::string& text);
  void End(int id);  ///< spoken to its end
  void Cut(int id);  ///< stopped before its end

 private:
  void WriteLine(const char* event, int id, const std::string& rest);

  std::mutex mutex_;
  std::FILE* file_ = nullptr;
};

}  // namespace corvane::desktop
