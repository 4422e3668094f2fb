#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Which language the parts of a text are in. Where the text goes as one string through
/// much that does not care, the languages go along in it as marks that nobody sees:
/// Unicode's language tag characters.
namespace corvane {

/// A part of a text in one language.
struct LanguageRun {
  std::string text;
  std::string language;  ///< a tag in small letters, "de", "pt-br"; empty: not said

  bool operator==(const LanguageRun&) const = default;
};

namespace language {

/// What words of a page are marked with that stand within a sentence of the program's own,
/// when nothing is known of their language: their letters tell it.
inline constexpr std::string_view kOfAPage = "und";

/// A page's name for a language (BCP 47) as it is kept here: "de-AT" is "de-at". Empty
/// when it is none.
std::string Tag(std::string_view name);

/// The language without its country and script: "pt-br" is "pt".
std::string_view Primary(std::string_view tag);

/// What the language is called in English; "language xx" where that is not known.
std::string Name(std::string_view tag);

/// The text with the mark that it is in that language; as it is where nothing is said
/// of it, or there is no text. What is marked within it keeps its own.
std::string Marked(std::string_view text, std::string_view tag);

/// A text's runs in order, none of them empty. Marks in it that are not whole are left out.
std::vector<LanguageRun> Runs(std::string_view text);

/// The text alone.
std::string Unmarked(std::string_view text);

}  // namespace language
}  // namespace corvane
