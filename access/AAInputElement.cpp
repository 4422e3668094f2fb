#include "access/AAInputElement.h"

#include "access/AAFormCollection.h"
#include "access/Sentence.h"
#include "base/handling.h"
#include "base/text.h"

namespace corvane {
namespace {

bool Is(const HTMLElement& input, const char* type) {
  return text::same_ignoring_case(input.type, type);
}

bool IsTextField(const HTMLElement& input) { return Is(input, "text") || Is(input, "password"); }

std::string Described(const HTMLElement& input) {
  if (Is(input, "radio") || Is(input, "checkbox")) {
    const std::string& words = input.text_after_end.empty() ? input.value : input.text_after_end;
    return Sentence({input.type, input.name, words, AAInputElement::StateWord(input)});
  }
  if (!IsTextField(input)) return Sentence({input.type, input.value});
  if (input.text_before_begin.empty()) return Sentence({input.type, input.name, input.value});
  return Sentence({input.type, input.name, input.text_before_begin, input.value});
}

}  // namespace

std::string AAInputElement::StateWord(const HTMLElement& input) {
  if (Is(input, "radio")) return input.status ? "selected" : "unselected";
  return input.status ? "checked" : "unchecked";
}

void AAInputElement::Listen() {
  connections_ += Element().onfocus.Connect([this] { AAInput_onfocus(); });
  connections_ += Element().onkeyup.Connect([this] { AAInput_onkeyup(); });
}

void AAInputElement::AAInput_onfocus() {
  ErrorsShown(Collection().Box(),
              "AAInput_onfocus Error: ", [&] { Collection().Say(Described(Element())); });
}

void AAInputElement::AAInput_onkeyup() {
  ErrorsShown(Collection().Box(), "AAInput_onkeyup Error: ", [&] {
    if (IsTextField(Element())) Collection().Say(caret_.Crossed(Element()));
  });
}

}  // namespace corvane
