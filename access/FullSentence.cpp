#include "access/FullSentence.h"

#include <vector>

#include "access/AAInputElement.h"
#include "access/ElementWords.h"
#include "access/FieldEcho.h"
#include "access/FieldKinds.h"
#include "base/language.h"
#include "base/text.h"

namespace corvane {
namespace {

using Words = std::vector<std::string>;

enum class Kind { Link, Text, Choice, Button, List, Area, Other };

bool IsOf(const HTMLElement& element, const char* type) {
  return text::same_ignoring_case(element.type, type);
}

bool IsText(const ElementFacts& facts) {
  return facts.role == "textbox" || facts.role == "searchbox" || facts.role == "password";
}

Kind KindOfInput(const HTMLElement& input, const ElementFacts& facts) {
  if (IsOf(input, "checkbox")) return facts.role == "checkbox" ? Kind::Choice : Kind::Other;
  if (IsOf(input, "radio")) return facts.role == "radio" ? Kind::Choice : Kind::Other;
  if (IsOf(input, "text") || IsSecret(input)) {
    return IsText(facts) && WordFor(input) == input.type ? Kind::Text : Kind::Other;
  }
  return facts.role == "button" ? Kind::Button : Kind::Other;
}

// What an element is in the established sentences. One that its page has made into
// something else is what the page says.
Kind KindOf(const HTMLElement& element, const ElementFacts& facts) {
  if (!facts.role_description.empty()) return Kind::Other;
  const std::string& type = element.type_name;
  if (type == "HTMLInputElement") return KindOfInput(element, facts);
  if (type == "HTMLSelectElement") {
    return facts.role == "combobox" || facts.role == "listbox" ? Kind::List : Kind::Other;
  }
  if (type == "HTMLTextAreaElement") return IsText(facts) ? Kind::Area : Kind::Other;
  return facts.role == "link" ? Kind::Link : Kind::Other;
}

std::string Joined(const Words& words, const Words& more) {
  std::string sentence;
  for (const Words* part : {&words, &more}) {
    for (const auto& each : *part) {
      if (each.empty()) continue;
      if (!sentence.empty()) sentence += ", ";
      sentence += each;
    }
  }
  return sentence;
}

std::string FirstOf(const Words& words) {
  for (const auto& each : words) {
    if (!each.empty()) return each;
  }
  return {};
}

std::string InItsLanguage(const HTMLElement& element, const std::string& words) {
  return language::Marked(words, element.facts->language);
}

// What a field is called. Its internal name is for those who have nothing better, and
// the value of a choice for those who have not even that.
Words NamesOf(const HTMLElement& field, const std::string& beside, const Manner& manner,
              const std::string& value = "") {
  const std::string label = FirstOf({field.facts->name, InItsLanguage(field, beside)});
  if (manner.field_names) return {field.name, FirstOf({label, value})};
  return {FirstOf({label, field.name, value})};
}

std::string Chosen(const HTMLElement& list) {
  const auto index = static_cast<std::size_t>(list.selectedIndex);
  return list.selectedIndex >= 0 && index < list.options.size() ? list.options[index] : "";
}

std::string CheckedWord(const HTMLElement& choice) {
  return choice.facts->checked == Tri::Mixed ? "partly checked" : AAInputElement::StateWord(choice);
}

}  // namespace

std::string FullSentence(const HTMLElement& element, const Manner& manner) {
  const ElementFacts& facts = *element.facts;
  const Words more = MoreWords(facts, false);
  Words words = {element.type};
  const auto add = [&words](Words others) {
    words.insert(words.end(), others.begin(), others.end());
  };
  switch (KindOf(element, facts)) {
    case Kind::Link:
      words = {FirstOf({facts.name, InItsLanguage(element, element.innerText), element.href}),
               RoleWords(facts)};
      break;
    case Kind::Text:
      add(NamesOf(element, element.text_before_begin, manner));
      words.push_back(InItsLanguage(element, Heard(element, element.value, manner)));
      break;
    case Kind::Area:
      add(NamesOf(element, element.text_before_begin, manner));
      words.push_back(InItsLanguage(element, TextOnEntry(element, manner)));
      break;
    case Kind::Choice:
      add(NamesOf(element, element.text_after_end, manner, element.value));
      words.push_back(CheckedWord(element));
      break;
    case Kind::Button:
      words.push_back(FirstOf({InItsLanguage(element, element.value), facts.name}));
      if (IsOf(element, "image")) words.push_back(RoleWords(facts));
      break;
    case Kind::List:
      add(NamesOf(element, element.text_before_begin, manner));
      words.push_back(InItsLanguage(element, Chosen(element)));
      break;
    case Kind::Other: {
      // Whatever its page calls an editor, its user wants to know what is there.
      const bool edits = element.type_name == "HTMLTextAreaElement" && facts.value.empty();
      const std::string line = edits ? TextOnEntry(element, manner) : "";
      return Joined({ElementSentence(facts), line}, {element.part, element.part_value});
    }
  }
  return Joined(words, more);
}

}  // namespace corvane
