#pragma once

#include <string>
#include <string_view>

/// Words out of HTML, for the few places that read a file without the engine.
namespace corvane::html {

/// The text with its entities ("&amp;", "&#8364;") replaced by what they mean;
/// what is none stays as it stands.
std::string unescaped(std::string_view text);

/// The same without blanks and line breaks around it.
std::string plain_words(std::string_view text);

/// The text as it may stand in HTML, also inside a quoted attribute.
std::string escaped(std::string_view text);

/// The title of a page; empty when there is none.
std::string title_of(std::string_view page);

}  // namespace corvane::html
