#include "access/AATextAreaElement.h"

#include "access/AAFormCollection.h"
#include "access/Sentence.h"
#include "base/handling.h"

namespace corvane {

void AATextAreaElement::Listen() {
  connections_ += Element().onfocus.Connect([this] { AATextArea_onfocus(); });
  connections_ += Element().onkeyup.Connect([this] { AATextArea_onkeyup(); });
}

void AATextAreaElement::AATextArea_onfocus() {
  ErrorsShown(Collection().Box(), "AATextArea_onfocus Error: ", [&] {
    const HTMLElement& area = Element();
    Collection().Say(area.text_before_begin.empty()
                         ? Sentence({area.type, area.name, area.value})
                         : Sentence({area.type, area.name, area.text_before_begin, area.value}));
  });
}

void AATextAreaElement::AATextArea_onkeyup() {
  ErrorsShown(Collection().Box(),
              "AATextArea_onkeyup Error: ", [&] { Collection().Say(caret_.Crossed(Element())); });
}

}  // namespace corvane
