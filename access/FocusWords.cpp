#include "access/FocusWords.h"

#include <algorithm>

#include "access/ElementWords.h"
#include "access/FullSentence.h"

namespace corvane {

std::string FocusWords::Entered(const ElementFacts& facts) {
  std::string words;
  for (const auto& entered : EnteredWords(groups_, facts.groups)) words += entered + ", ";
  groups_ = facts.groups;
  // Of what is within, this has been said.
  ElementGroup& itself = groups_.emplace_back();
  itself.number = facts.number;
  itself.role = facts.role;
  itself.name = facts.name;
  return words;
}

std::string FocusWords::OfChoice(const HTMLElement& list, const std::string& words, int option) {
  if (!manner_.full_sentences || !list.facts || words.empty()) return words;
  ElementFacts choice;
  choice.place = option + 1;
  choice.size = static_cast<int>(list.options.size());
  return Entered(*list.facts) + words + ", " + PlaceWords(choice);
}

std::string FocusWords::Of(const HTMLElement& element, const std::string& established) {
  if (!manner_.full_sentences || !element.facts) return established;
  const std::string words = Entered(*element.facts);
  const std::string sentence = FullSentence(element, manner_);
  if (!sentence.empty()) return words + sentence;
  return words.substr(0, words.size() - std::min<std::size_t>(words.size(), 2));
}

}  // namespace corvane
