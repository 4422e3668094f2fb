#include "platform/linux/store/log.h"

#include <glib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

using Level = LogChoice::Level;

constexpr const char* kHidden = "(address)";

Level LevelOf(GLogLevelFlags flags) {
  if ((flags & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL)) != 0) return Level::Error;
  if ((flags & G_LOG_LEVEL_WARNING) != 0) return Level::Warning;
  return (flags & G_LOG_LEVEL_MESSAGE) != 0 ? Level::Message : Level::Debug;
}

const char* NameOf(Level level) {
  switch (level) {
    case Level::Error:
      return "error";
    case Level::Warning:
      return "warning";
    case Level::Message:
      return "message";
    case Level::Debug:
      break;
  }
  return "debug";
}

// Nothing in here may log.
GLogWriterOutput Write(GLogLevelFlags flags, const GLogField* fields, gsize count, gpointer data) {
  const auto& choice = *static_cast<const LogChoice*>(data);
  const Level level = LevelOf(flags);
  if (level > choice.level) return G_LOG_WRITER_HANDLED;
  std::string domain;
  std::string message;
  for (gsize i = 0; i < count; ++i) {
    const bool is_message = g_strcmp0(fields[i].key, "MESSAGE") == 0;
    if (!is_message && g_strcmp0(fields[i].key, "GLIB_DOMAIN") != 0) continue;
    const auto* value = static_cast<const char*>(fields[i].value);
    (is_message ? message : domain) =
        fields[i].length < 0 ? std::string(value)
                             : std::string(value, static_cast<std::size_t>(fields[i].length));
  }
  if (!choice.addresses) message = WithoutAddresses(message);
  const Owned<GDateTime, g_date_time_unref> now(g_date_time_new_now_local());
  const GText time(g_date_time_format(now.get(), "%H:%M:%S"));
  std::fprintf(stderr, "%s %s %s: %s\n", time.get(), NameOf(level),
               domain.empty() ? "Corvane" : domain.c_str(), message.c_str());
  return G_LOG_WRITER_HANDLED;
}

}  // namespace

LogChoice ReadLogChoice(const std::string& text) {
  LogChoice choice;
  std::istringstream words(text);
  for (std::string word; std::getline(words, word, ',');) {
    if (word == "addresses") choice.addresses = true;
    for (const Level level : {Level::Error, Level::Warning, Level::Message, Level::Debug}) {
      if (word == NameOf(level)) choice.level = level;
    }
  }
  return choice;
}

// A word is an address when it has a scheme ("x:" and more) with a slash behind
// it somewhere, or begins with a slash or a tilde; quotes and brackets before it
// do not matter.
std::string WithoutAddresses(const std::string& text) {
  std::string result;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n", at), text.size());
    const std::string word = text.substr(at, end - at);
    const std::size_t start = word.find_first_not_of("\"'`([{<\xe2\x80\x9c\x98");
    const bool address =
        start != std::string::npos &&
        (word[start] == '/' || word[start] == '~' || word.find("://", start) != std::string::npos ||
         word.find(":/", start) != std::string::npos ||
         word.find("data:", start) != std::string::npos);
    result += address ? word.substr(0, start) + kHidden : word;
    if (end < text.size()) result += text[end];
    at = end + 1;
  }
  return result;
}

void StartLog() {
  const char* chosen = std::getenv("CORVANE_LOG");
  static const LogChoice choice = ReadLogChoice(chosen == nullptr ? "" : chosen);
  g_log_set_writer_func(&Write, const_cast<LogChoice*>(&choice), nullptr);
}

}  // namespace corvane::desktop
