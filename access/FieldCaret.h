#pragma once

#include <cstddef>
#include <string>

#include "platform/html_document.h"

namespace corvane {

/// What the caret of one field has reached: the character, word, line or paragraph
/// that the user's key leads to; what was typed or removed; what was selected or let
/// go. Keeps what the field held when it was asked last.
class FieldCaret {
 public:
  /// Takes over what the field holds and where its caret is, unheard.
  void Follow(const HTMLElement& field);
  /// What there is to hear of the key that was released; empty when nothing has
  /// happened.
  std::string Reached(const HTMLElement& field);

 private:
  struct Place {
    std::size_t start = 0;  // of what is selected, in characters; the caret
    std::size_t end = 0;
    bool operator==(const Place&) const = default;
  };
  static Place PlaceIn(const HTMLElement& field);
  std::string Selected(const HTMLElement& field, const Place& now) const;
  bool TypedOverSelection(const HTMLElement& field, const Place& now) const;

  std::string value_;
  Place place_;
};

/// The word at a place among the characters of a text, or that ends there.
std::string WordAt(const std::string& text, std::size_t place);
/// The line at a place, without its end; paragraphs are lines.
std::string LineAt(const std::string& text, std::size_t place);
/// The character behind a place: "end of line" and "end" where there is none.
std::string CharacterAt(const std::string& text, std::size_t place);

}  // namespace corvane
