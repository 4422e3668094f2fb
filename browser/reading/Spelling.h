#pragma once

#include <optional>
#include <string>

#include "browser/PaneContext.h"

namespace corvane {

/// Spells what is at the caret of the part of the pane that the user is in; where there
/// is no caret, the words of what has the focus. Asked for the same again, by the words
/// of the spelling alphabet.
class Spelling {
 public:
  explicit Spelling(PaneContext& pane) : pane_(pane) {}

  void SpellWord();
  void SpellLine();

 private:
  /// A line with the caret in it, counted in characters.
  struct Place {
    std::string line;
    int column = 0;
    bool has_caret = true;
  };
  /// Nothing where there is nothing to spell.
  std::optional<Place> Here() const;
  std::optional<Place> InPage() const;
  void Spell(const std::string& text);

  PaneContext& pane_;
  std::string spelled_;    // last
  int said_ = -1;          // what the announcer had said by then
  bool by_words_ = false;  // that was done with the alphabet's words
};

/// The text's characters one by one: signs by their names, letters and digits as they are.
std::string Spelled(const std::string& text);
/// The same with a word for each letter of the Latin alphabet: "Alfa, Bravo".
std::string SpelledByWords(const std::string& text);

}  // namespace corvane
