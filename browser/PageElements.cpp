#include "browser/PageElements.h"

#include <array>
#include <utility>

#include "access/AAInputElement.h"
#include "access/ElementWords.h"
#include "access/Sentence.h"
#include "base/text.h"

namespace corvane {
namespace {

bool HasAnnouncer(const HTMLElement& element) {
  return element.type_name == "HTMLInputElement" || element.type_name == "HTMLSelectElement" ||
         element.type_name == "HTMLTextAreaElement" || element.type_name == "HTMLAnchorElement";
}

struct Kind {
  const char* type_name;
  const char* words;
};
// A button is called so whatever it does; what a field set holds is not its name.
constexpr std::array kKinds = {
    Kind{"HTMLButtonElement", "button"},
    Kind{"HTMLFieldSetElement", "group"},
    Kind{"HTMLObjectElement", "object"},
};

constexpr std::size_t kMostWords = 300;  // characters of what an element shows

/// What an element without an announcer is called: its kind and its words.
std::string Described(const HTMLElement& element) {
  std::string type = element.type;
  std::string words = element.innerText.empty() ? element.label : element.innerText;
  for (const Kind& kind : kKinds) {
    if (element.type_name == kind.type_name) type = kind.words;
  }
  if (element.type_name != "HTMLButtonElement" && !element.label.empty()) words = element.label;
  if (words.empty()) words = element.href;
  words = text::left(words, kMostWords);
  return type.empty() ? words : Sentence({type, words});
}

bool CanBeChecked(const HTMLElement& element) {
  return element.type_name == "HTMLInputElement" &&
         (text::same_ignoring_case(element.type, "checkbox") ||
          text::same_ignoring_case(element.type, "radio"));
}

}  // namespace

PageElements::PageElements(PaneContext& pane)
    : pane_(pane), oAAFormCol_(pane.desktop, pane.manner) {
  connections_ +=
      oAAFormCol_.SayEvent.Connect([this](const std::string& text) { oAAFormCol_Say(text); });
}

void PageElements::Reset(const HTMLDocumentPtr& document, std::function<void()> done) {
  document_ = document;
  followed_.Clear();
  followed_ +=
      document->onelementadded.Connect([this](const HTMLElementPtr& element) { Follow(element); });
  for (const auto& form : document->forms) {
    for (const auto& element : form.elements) Follow(element);
  }
  for (const auto& link : document->links) Follow(link);
  oAAFormCol_.ResetStructure(document, std::move(done));
}

void PageElements::Follow(const HTMLElementPtr& element) {
  HTMLElement* each = element.get();
  followed_ += each->onstate.Connect([this, each] { Changed(*each); });
  if (!HasAnnouncer(*each)) {
    followed_ += each->onfocus.Connect([this, each] {
      control_ = each->part_value;
      oAAFormCol_.SayFocused(*each, Described(*each));
    });
  } else if (CanBeChecked(*each)) {
    followed_ +=
        each->onchange.Connect([this, each] { oAAFormCol_Say(AAInputElement::StateWord(*each)); });
  }
}

// A player's controls; what a text field has for parts says its announcer.
std::string PageElements::ControlReached(const HTMLElement& element) {
  if (HasAnnouncer(element)) return {};
  const bool is_other = std::exchange(control_, element.part_value) != element.part_value;
  if (!is_other || element.part.empty()) return {};
  const std::string& name = element.part_value;
  return Sentence({element.part, name.empty() ? PositionWords(*element.facts) : name});
}

// What changes with the focus belongs to what is being said of it.
void PageElements::Changed(const HTMLElement& element) {
  if (!element.facts || !element.facts_before) return;
  ElementFacts before = *element.facts_before;
  if (!pane_.manner.full_sentences) {
    // What has an announcer says so itself.
    const bool has_own = HasAnnouncer(element) && CanBeChecked(element);
    return oAAFormCol_Say(has_own ? "" : EstablishedChangeWords(before, *element.facts));
  }
  // What is typed is heard as it is typed.
  if (element.caret.edit != ElementCaret::Edit::None) before.value = element.facts->value;
  std::string words = ChangeWords(before, *element.facts);
  if (const std::string control = ControlReached(element); !control.empty()) words = control;
  if (words.empty()) return;
  if (element.changed_with_focus) {
    pane_.announcer.SayBehind(words);
  } else {
    oAAFormCol_Say(words);
  }
}

// A page that moves the focus by itself, as it opens, does not cut off its own title.
void PageElements::oAAFormCol_Say(const std::string& sText) {
  if (sText.empty()) return;
  if (document_ && document_->unasked) return pane_.announcer.AddAndSayAfterTitle(sText);
  pane_.announcer.AddAndSay(sText);
}

}  // namespace corvane
