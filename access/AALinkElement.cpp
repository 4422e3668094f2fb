#include "access/AALinkElement.h"

#include "access/AAFormCollection.h"
#include "base/handling.h"

namespace corvane {

void AALinkElement::Listen() {
  connections_ += Element().onfocus.Connect([this] { AALink_onfocus(); });
}

void AALinkElement::AALink_onfocus() {
  ErrorsShown(Collection().Box(),
              "AALink_onfocus Error: ", [&] { Collection().Say(Element().innerText); });
}

}  // namespace corvane
