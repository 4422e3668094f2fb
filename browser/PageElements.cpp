#include "browser/PageElements.h"

#include "access/AAInputElement.h"
#include "access/Sentence.h"
#include "base/text.h"

namespace corvane {
namespace {

bool HasAnnouncer(const HTMLElement& element) {
  return element.type_name == "HTMLInputElement" || element.type_name == "HTMLSelectElement" ||
         element.type_name == "HTMLTextAreaElement" || element.type_name == "HTMLAnchorElement";
}

/// What an element without an announcer is called: its kind and its words.
std::string Described(const HTMLElement& element) {
  const std::string& words = element.innerText.empty() ? element.href : element.innerText;
  return element.type.empty() ? words : Sentence({element.type, words});
}

bool CanBeChecked(const HTMLElement& element) {
  return element.type_name == "HTMLInputElement" &&
         (text::same_ignoring_case(element.type, "checkbox") ||
          text::same_ignoring_case(element.type, "radio"));
}

}  // namespace

PageElements::PageElements(PaneContext& pane) : pane_(pane), oAAFormCol_(pane.desktop) {
  connections_ +=
      oAAFormCol_.SayEvent.Connect([this](const std::string& text) { oAAFormCol_Say(text); });
}

void PageElements::Reset(const HTMLDocumentPtr& document) {
  followed_.Clear();
  followed_ +=
      document->onelementadded.Connect([this](const HTMLElementPtr& element) { Follow(element); });
  for (const auto& form : document->forms) {
    for (const auto& element : form.elements) Follow(element);
  }
  for (const auto& link : document->links) Follow(link);
  oAAFormCol_.ResetStructure(document);
}

void PageElements::Follow(const HTMLElementPtr& element) {
  HTMLElement* each = element.get();
  if (!HasAnnouncer(*each)) {
    followed_ += each->onfocus.Connect([this, each] { oAAFormCol_Say(Described(*each)); });
  } else if (CanBeChecked(*each)) {
    followed_ +=
        each->onchange.Connect([this, each] { oAAFormCol_Say(AAInputElement::StateWord(*each)); });
  }
}

void PageElements::oAAFormCol_Say(const std::string& sText) {
  if (!sText.empty()) pane_.announcer.AddAndSay(sText);
}

}  // namespace corvane
