#pragma once

#include <string>

namespace corvane::desktop {

/// How much the log tells.
struct LogChoice {
  enum class Level { Error, Warning, Message, Debug };
  Level level = Level::Message;
  bool addresses = false;  ///< addresses of pages and paths of files stay in it
};

/// Reads CORVANE_LOG: "error", "warning", "message" or "debug", and "addresses",
/// in any order, with commas between. What is not known is passed over.
LogChoice ReadLogChoice(const std::string& text);

/// The text without addresses of pages and paths of files.
std::string WithoutAddresses(const std::string& text);

/// From now on what the program and its libraries report goes to standard error,
/// one line each with its time, as CORVANE_LOG chooses. Once a process.
void StartLog();

}  // namespace corvane::desktop
