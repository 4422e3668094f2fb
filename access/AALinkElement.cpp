#include "access/AALinkElement.h"

#include "access/AAFormCollection.h"
#include "platform/errors_shown.h"

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
    const HTMLElement& link = Element();
    Collection().SayFocused(link,
                            Collection().HowToSay().today ? WordsOfLink(link) : link.innerText);
  });
}

}  // namespace corvane
