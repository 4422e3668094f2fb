#include "access/AALinkElement.h"

#include "access/AAFormCollection.h"
#include "base/handling.h"

namespace corvane {

const std::string& WordsOfLink(const HTMLElement& link) {
  if (!link.innerText.empty()) return link.innerText;
  return link.label.empty() ? link.href : link.label;
}

void AALinkElement::Listen() {
  connections_ += Element().onfocus.Connect([this] { AALink_onfocus(); });
}

void AALinkElement::AALink_onfocus() {
  ErrorsShown(Collection().Box(), "AALink_onfocus Error: ", [&] {
    Collection().Say(Collection().HowToSay().today ? WordsOfLink(Element()) : Element().innerText);
  });
}

}  // namespace corvane
