#include "access/AATextAreaElement.h"

#include "access/AAFormCollection.h"
#include "access/FieldKinds.h"
#include "access/Sentence.h"
#include "base/handling.h"

namespace corvane {

void AATextAreaElement::Listen() {
  caret_.Hold(Element());
  connections_ += Element().onfocus.Connect([this] { AATextArea_onfocus(); });
  connections_ += Element().onkeyup.Connect([this] { AATextArea_onkeyup(); });
}

void AATextAreaElement::AATextArea_onfocus() {
  ErrorsShown(Collection().Box(), "AATextArea_onfocus Error: ", [&] {
    const HTMLElement& area = Element();
    caret_.Hold(area);
    const std::string before = Beside(area.text_before_begin, area, Collection().HowToSay());
    Collection().Say(before.empty() ? Sentence({area.type, area.name, area.value})
                                    : Sentence({area.type, area.name, before, area.value}));
  });
}

void AATextAreaElement::AATextArea_onkeyup() {
  ErrorsShown(Collection().Box(), "AATextArea_onkeyup Error: ", [&] {
    Collection().Say(Collection().HowToSay().today ? caret_.Done(Element())
                                                   : caret_.Crossed(Element()));
  });
}

}  // namespace corvane
