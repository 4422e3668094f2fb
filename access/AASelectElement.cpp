#include "access/AASelectElement.h"

#include "access/AAFormCollection.h"
#include "access/Sentence.h"
#include "base/handling.h"

namespace corvane {

void AASelectElement::Listen() {
  connections_ += Element().onfocus.Connect([this] { AASelect_onfocus(); });
  connections_ += Element().onchange.Connect([this] { AASelect_onchange(); });
}

std::string AASelectElement::Choice() const {
  const HTMLElement& select = Element();
  if (select.selectedIndex < 0) return {};
  const auto index = static_cast<std::size_t>(select.selectedIndex);
  return index < select.options.size() ? select.options[index] : std::string();
}

void AASelectElement::AASelect_onfocus() {
  ErrorsShown(Collection().Box(), "AASelect_onfocus Error: ", [&] {
    Collection().Say(Sentence({Element().type, Element().name, Choice()}));
  });
}

void AASelectElement::AASelect_onchange() {
  ErrorsShown(Collection().Box(), "AASelect_onchange Error: ", [&] { Collection().Say(Choice()); });
}

}  // namespace corvane
