#include "platform/linux/gtk/text.h"

#include <glib.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

Glib::ustring Valid(const std::string& text) {
  const auto length = static_cast<gssize>(text.size());
  if (g_utf8_validate(text.data(), length, nullptr)) return Glib::ustring(text);
  return Taken(g_utf8_make_valid(text.data(), length));
}

Glib::ustring WithMnemonic(const std::string& caption) {
  std::string result;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '_') {
      result += "__";
    } else if (caption[i] != '&') {
      result += caption[i];
    } else if (i + 1 < caption.size() && caption[i + 1] == '&') {
      result += caption[++i];
    } else if (i + 1 < caption.size()) {
      result += '_';
    }
  }
  return Valid(result);
}

std::string WithoutMnemonic(const std::string& caption) {
  std::string result;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') result += caption[++i];
      continue;
    }
    result += caption[i];
  }
  return result;
}

std::string OnOneLine(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    result += c == '\n' || c == '\r' ? ' ' : c;
  }
  return result;
}

}  // namespace corvane::desktop
