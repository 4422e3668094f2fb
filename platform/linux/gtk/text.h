#pragma once

#include <glibmm/ustring.h>

#include <string>

namespace corvane::desktop {

/// Text that the toolkit accepts: whatever is not UTF-8 becomes U+FFFD.
Glib::ustring Valid(const std::string& text);

/// A caption as the toolkit writes it: "&" before the access key becomes "_",
/// "&&" a single "&", and underscores of the caption's own stay visible.
Glib::ustring WithMnemonic(const std::string& caption);

/// A caption as it reads: without its access key mark.
std::string WithoutMnemonic(const std::string& caption);

/// Text on one line: every line end becomes a blank.
std::string OnOneLine(const std::string& text);

/// The letter as it is compared when entries are looked for.
inline gunichar Folded(gunichar letter) { return g_unichar_tolower(letter); }

}  // namespace corvane::desktop
