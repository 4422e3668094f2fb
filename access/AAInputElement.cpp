#include "access/AAInputElement.h"

#include <utility>

#include "access/AAFormCollection.h"
#include "access/FieldKinds.h"
#include "access/Sentence.h"
#include "base/text.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

bool Is(const HTMLElement& input, const char* type) {
  return text::same_ignoring_case(input.type, type);
}

std::string Described(const HTMLElement& input, const Manner& manner) {
  if (Is(input, "radio") || Is(input, "checkbox")) {
    const std::string after = Beside(input.text_after_end, input, manner);
    return Sentence({input.type, input.name, after.empty() ? input.value : after,
                     AAInputElement::StateWord(input)});
  }
  if (!IsTyped(input)) {
    return Sentence({input.type, Beside(input.value, input, manner)});
  }
  const std::string before = Beside(input.text_before_begin, input, manner);
  const std::string value = Heard(input, input.value, manner);
  std::string sentence = before.empty() ? Sentence({WordFor(input), input.name, value})
                                        : Sentence({WordFor(input), input.name, before, value});
  if (!input.part.empty()) sentence = Sentence({sentence, input.part, input.part_value});
  return sentence;
}

}  // namespace

std::string AAInputElement::StateWord(const HTMLElement& input) {
  if (Is(input, "radio")) return input.status ? "selected" : "unselected";
  return input.status ? "checked" : "unchecked";
}

void AAInputElement::Listen() {
  caret_.Enter(Element());
  connections_ += Element().onfocus.Connect([this] { AAInput_onfocus(); });
  connections_ += Element().onkeyup.Connect([this] { AAInput_onkeyup(); });
  connections_ += Element().onchange.Connect([this] { AAInput_onchange(); });
}

void AAInputElement::AAInput_onfocus() {
  ErrorsShown(Collection().Box(), "AAInput_onfocus Error: ", [&] {
    const HTMLElement& input = Element();
    caret_.Enter(input);
    stepped_ = false;
    part_ = input.part;
    part_value_ = input.part_value;
    Collection().SayFocused(input, Described(input, Collection().HowToSay()));
  });
}

void AAInputElement::AAInput_onkeyup() {
  ErrorsShown(Collection().Box(), "AAInput_onkeyup Error: ", [&] {
    const HTMLElement& input = Element();
    if (!IsTyped(input)) return;
    if (!input.part.empty()) return Collection().Say(PartCrossed());
    if (std::exchange(stepped_, false)) return caret_.Follow(input);
    Collection().Say(caret_.Heard(input, Collection().HowToSay()));
  });
}

// What is stepped through is said with each step; the key's release adds nothing.
void AAInputElement::AAInput_onchange() {
  ErrorsShown(Collection().Box(), "AAInput_onchange Error: ", [&] {
    if (!IsStepped(Element())) return;
    stepped_ = true;
    Collection().Say(Element().value);
  });
}

std::string AAInputElement::PartCrossed() {
  const HTMLElement& input = Element();
  const bool moved = std::exchange(part_, input.part) != input.part;
  const bool changed = std::exchange(part_value_, input.part_value) != input.part_value;
  if (moved) return Sentence({part_, part_value_});
  return changed ? part_value_ : "";
}

}  // namespace corvane
