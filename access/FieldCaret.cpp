#include "access/FieldCaret.h"

#include <algorithm>
#include <cctype>

#include "access/TextChange.h"
#include "base/language.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kMostSelected = 300;  // characters that are said themselves

std::string Part(const std::string& text, std::size_t from, std::size_t to) {
  return from < to ? text::mid(text, from + 1, to - from) : std::string();
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// What the field holds is in the field's language; the rest is the program's own.
std::string InIts(const HTMLElement& field, const std::string& words) {
  return field.facts ? language::Marked(words, field.facts->language) : words;
}

std::string Said(const HTMLElement& field, const std::string& characters, const char* what) {
  const std::size_t count = text::length(characters);
  if (count <= kMostSelected) return InIts(field, characters) + " " + what;
  return std::to_string(count) + " characters " + what;
}

std::string Changed(const HTMLElement& field, const TextChange& change, bool removal) {
  const bool removed = removal || change.added.empty();
  const std::string& characters = removed ? change.removed : change.added;
  if (text::length(characters) <= kMostSelected) return InIts(field, characters);
  return Said(field, characters, removed ? "removed" : "inserted");
}

// A sign is named as everywhere.
std::string Character(const HTMLElement& field, std::size_t place) {
  const std::string character = CharacterAt(field.value, place);
  const auto first = static_cast<unsigned char>(character[0]);
  const bool is_letter = first >= 0x80 || std::isalpha(first) != 0;
  const bool is_its = text::mid(field.value, place + 1, 1) == character && is_letter;
  return is_its ? InIts(field, character) : character;
}

}  // namespace

std::string CharacterAt(const std::string& text, std::size_t place) {
  const std::string character = text::mid(text, place + 1, 1);
  if (character.empty()) return "end";
  return character == "\n" || character == "\r" ? "end of line" : character;
}

std::string WordAt(const std::string& text, std::size_t place) {
  std::size_t begin = text::offset_of(text, place);
  // At the end of a word it is that word that the caret has reached.
  if (begin == text.size() || IsBlank(text[begin])) {
    while (begin > 0 && IsBlank(text[begin - 1])) --begin;
  }
  std::size_t end = begin;
  while (begin > 0 && !IsBlank(text[begin - 1])) --begin;
  while (end < text.size() && !IsBlank(text[end])) ++end;
  return text.substr(begin, end - begin);
}

std::string LineAt(const std::string& text, std::size_t place) {
  const std::size_t at = text::offset_of(text, place);
  const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
  const std::size_t begin = before == std::string::npos ? 0 : before + 1;
  const std::size_t end = std::min(text.find('\n', at), text.size());
  return text.substr(begin, end - begin);
}

FieldCaret::Place FieldCaret::PlaceIn(const HTMLElement& field) {
  const std::size_t end = CharactersBeforeCaret(field);
  const auto selected = static_cast<std::size_t>(std::max(field.caret.selection_length, 0));
  return {end - std::min(end, selected), end};
}

void FieldCaret::Follow(const HTMLElement& field) {
  value_ = field.value;
  place_ = PlaceIn(field);
}

std::string FieldCaret::Selected(const HTMLElement& field, const Place& now) const {
  const auto outside = [&](const Place& whole, const Place& part) {
    if (part.start == part.end) return Part(field.value, whole.start, whole.end);
    return Part(field.value, whole.start, std::min(whole.end, part.start)) +
           Part(field.value, std::max(whole.start, part.end), whole.end);
  };
  if (const std::string added = outside(now, place_); !added.empty()) {
    return Said(field, added, "selected");
  }
  return Said(field, outside(place_, now), "unselected");
}

bool FieldCaret::TypedOverSelection(const HTMLElement& field, const Place& now) const {
  return field.value != value_ && field.caret.known &&
         field.caret.edit == ElementCaret::Edit::Typed && place_.start < place_.end &&
         now.start == now.end && place_.start < now.end && now.end - place_.start <= kMostSelected;
}

std::string FieldCaret::Reached(const HTMLElement& field) {
  using Step = ElementCaret::Step;
  const Place now = PlaceIn(field);
  std::string words;
  if (field.value != value_ && field.caret.edit == ElementCaret::Edit::None) {
    // The page has put it there; what its facts tell has been heard.
    const bool is_told = field.facts && language::Unmarked(field.facts->value) == field.value;
    if (!is_told) words = InIts(field, field.value);
    if (field.value.empty()) words = "blank";
  } else if (TypedOverSelection(field, now)) {
    // It may read like a part of what it has replaced.
    words = InIts(field, Part(field.value, place_.start, now.end));
  } else if (field.value != value_) {
    words = Changed(field, Between(value_, field), field.caret.edit == ElementCaret::Edit::Removed);
  } else if (now.start != now.end || (place_.start != place_.end && field.caret.extends)) {
    if (now != place_) words = Selected(field, now);
  } else if (now != place_) {
    switch (field.caret.step) {
      case Step::Word:
        words = InIts(field, WordAt(field.value, now.end));
        break;
      case Step::Line:
        words = InIts(field, field.caret.line.value_or(LineAt(field.value, now.end)));
        if (words.empty()) words = "blank";
        break;
      case Step::Paragraph:
        words = InIts(field, LineAt(field.value, now.end));
        if (words.empty()) words = "blank";
        break;
      case Step::Character:
        words = Character(field, now.end);
        break;
    }
  }
  Follow(field);
  return words;
}

}  // namespace corvane
