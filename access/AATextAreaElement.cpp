#include "access/AATextAreaElement.h"

#include "access/AAFormCollection.h"
#include "access/FieldKinds.h"
#include "access/Sentence.h"
#include "platform/errors_shown.h"

namespace corvane {

void AATextAreaElement::Listen() {
  caret_.Enter(Element());
  connections_ += Element().onfocus.Connect([this] { AATextArea_onfocus(); });
  connections_ += Element().onkeyup.Connect([this] { AATextArea_onkeyup(); });
}

void AATextAreaElement::AATextArea_onfocus() {
  ErrorsShown(Collection().Box(), "AATextArea_onfocus Error: ", [&] {
    const HTMLElement& area = Element();
    caret_.Enter(area);
    const Manner& manner = Collection().HowToSay();
    const std::string before = Beside(area.text_before_begin, area, manner);
    const std::string text = TextOnEntry(area, manner);
    Collection().SayFocused(area, before.empty() ? Sentence({area.type, area.name, text})
                                                 : Sentence({area.type, area.name, before, text}));
  });
}

void AATextAreaElement::AATextArea_onkeyup() {
  ErrorsShown(Collection().Box(), "AATextArea_onkeyup Error: ", [&] {
    Collection().Say(caret_.Heard(Element(), Collection().HowToSay()));
  });
}

}  // namespace corvane
