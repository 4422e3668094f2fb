#pragma once

#include "access/AAFormCollection.h"
#include "tests/unit/program.h"

namespace corvane::tests {

inline HTMLElementPtr Field(const std::string& type_name, const std::string& type,
                            const std::string& name = "") {
  auto element = std::make_shared<HTMLElement>();
  element->type_name = type_name;
  element->type = type;
  element->name = name;
  return element;
}

inline HTMLElementPtr Input(const std::string& type, const std::string& name = "") {
  return Field("HTMLInputElement", type, name);
}

inline HTMLElementPtr Link(const std::string& words) {
  auto link = Field("HTMLAnchorElement", "");
  link->innerText = words;
  return link;
}

/// A collection whose sentences are kept.
struct FormAnnouncers : ::testing::Test {
  FakeDesktop desktop;
  Manner manner;
  AAFormCollection forms{desktop, manner};
  std::vector<std::string> said;
  Connection listening =
      forms.SayEvent.Connect([this](const std::string& text) { said.push_back(text); });

  /// Resets to a page with one form that holds these elements.
  HTMLDocumentPtr Reset(const std::vector<HTMLElementPtr>& elements) {
    auto page = MakePage("http://p/", "P", "");
    page->forms.push_back({elements});
    forms.ResetStructure(page);
    return page;
  }
  std::string Focus(const HTMLElementPtr& element) {
    said.clear();
    Reset({element});
    element->onfocus.Raise();
    return said.empty() ? "nothing" : said.back();
  }
  /// The field now holds this, with the caret so many characters before its end.
  std::string KeyUp(HTMLElement& field, const std::string& value, int text_after,
                    int selected = 0) {
    said.clear();
    field.value = value;
    field.caret = {selected, text_after};
    field.onkeyup.Raise();
    return said.empty() ? "nothing" : said.back();
  }
  /// The same, where the key has typed into the field or removed from it.
  std::string Edited(HTMLElement& field, ElementCaret::Edit edit, const std::string& value,
                     int text_after) {
    said.clear();
    field.value = value;
    field.caret = {0, text_after, true, edit};
    field.onkeyup.Raise();
    return said.empty() ? "nothing" : said.back();
  }
};

}  // namespace corvane::tests
