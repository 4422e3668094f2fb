#include "access/FullSentence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "access/FocusWords.h"
#include "tests/unit/some_facts.h"

namespace corvane {
namespace {

using tests::SomeFacts;

Manner Full() {
  Manner manner;
  manner.full_sentences = true;
  manner.field_names = false;
  return manner;
}

/// An element of a page with its facts.
HTMLElement Element(const char* type_name, const char* type, ElementFacts facts) {
  HTMLElement element;
  element.type_name = type_name;
  element.type = type;
  element.facts = std::make_shared<ElementFacts>(std::move(facts));
  return element;
}

TEST(FullSentence, ALinkIsItsNameAndItsRole) {
  HTMLElement link = Element("HTMLAnchorElement", "", SomeFacts("link", "Prices"));
  link.innerText = "Prices";
  EXPECT_EQ(FullSentence(link, Full()), "Prices, link");
}

TEST(FullSentence, ALinkWithoutAnyNameIsItsAddress) {
  HTMLElement link = Element("HTMLAnchorElement", "", SomeFacts("link", ""));
  link.href = "https://example.org/";
  EXPECT_EQ(FullSentence(link, Full()), "https://example.org/, link");
}

TEST(FullSentence, AFieldKeepsItsSentenceAndWhatItLacksFollows) {
  ElementFacts facts = SomeFacts("textbox", "Search");
  facts.required = true;
  facts.place = 3;
  facts.size = 4;
  HTMLElement field = Element("HTMLInputElement", "text", facts);
  field.name = "q";
  EXPECT_EQ(FullSentence(field, Full()), "text, Search, required, 3 of 4");
  field.value = "cats";
  EXPECT_EQ(FullSentence(field, Full()), "text, Search, cats, required, 3 of 4");
}

TEST(FullSentence, AnInternalNameIsSaidWhereItIsWantedOrNothingElseIsThere) {
  HTMLElement field = Element("HTMLInputElement", "text", SomeFacts("textbox", "Search"));
  field.name = "q";
  Manner manner = Full();
  manner.field_names = true;
  EXPECT_EQ(FullSentence(field, manner), "text, q, Search");
  field.facts = std::make_shared<ElementFacts>(SomeFacts("textbox", ""));
  EXPECT_EQ(FullSentence(field, Full()), "text, q");
}

TEST(FullSentence, AnEditorThatIsCalledSomethingElseSaysItsLine) {
  HTMLElement block =
      Element("HTMLTextAreaElement", "textarea", SomeFacts("document", "Paragraph block"));
  block.value = "Hello\nWorld";
  block.caret.line = "World";
  Manner manner = Full();
  manner.field_caret = true;
  EXPECT_EQ(FullSentence(block, manner), "document, Paragraph block, World");
}

TEST(FullSentence, AChoiceSaysWhetherItIsMade) {
  ElementFacts facts = SomeFacts("radio", "Large");
  facts.checked = Tri::Yes;
  facts.place = 2;
  facts.size = 3;
  HTMLElement radio = Element("HTMLInputElement", "radio", facts);
  radio.name = "size";
  radio.status = true;
  EXPECT_EQ(FullSentence(radio, Full()), "radio, Large, selected, 2 of 3");
  facts = SomeFacts("checkbox", "All");
  facts.checked = Tri::Mixed;
  EXPECT_EQ(FullSentence(Element("HTMLInputElement", "checkbox", facts), Full()),
            "checkbox, All, partly checked");
}

TEST(FullSentence, AHiddenPasswordStaysHidden) {
  HTMLElement field = Element("HTMLInputElement", "password", SomeFacts("password", "Password"));
  field.value = "ab";
  Manner manner = Full();
  manner.hide_passwords = true;
  EXPECT_EQ(FullSentence(field, manner), "password, Password, star star");
}

TEST(FullSentence, WhatThePageHasMadeOfAnElementIsWhatItIs) {
  ElementFacts facts = SomeFacts("switch", "Light");
  facts.checked = Tri::No;
  EXPECT_EQ(FullSentence(Element("HTMLInputElement", "checkbox", facts), Full()),
            "switch, Light, off");
  EXPECT_EQ(FullSentence(Element("HTMLAnchorElement", "", SomeFacts("button", "Send")), Full()),
            "button, Send");
}

TEST(FullSentence, AListSaysItsChoice) {
  ElementFacts facts = SomeFacts("combobox", "Country");
  facts.place = 2;
  facts.size = 2;
  HTMLElement list = Element("HTMLSelectElement", "select-one", facts);
  list.options = {"France", "Spain"};
  list.selectedIndex = 1;
  EXPECT_EQ(FullSentence(list, Full()), "select-one, Country, Spain, 2 of 2");
}

TEST(FullSentence, APictureThatSendsAFormIsAButton) {
  HTMLElement image = Element("HTMLInputElement", "image", SomeFacts("button", "Send as a card"));
  EXPECT_EQ(FullSentence(image, Full()), "image, Send as a card, button");
}

TEST(FullSentence, OfATextAreaTheLineAtTheCaretIsSaidWhereThatIsWanted) {
  HTMLElement area = Element("HTMLTextAreaElement", "textarea", SomeFacts("textbox", "Letter"));
  area.value = "Dear council,\nthe bridge\nis broken.";
  area.caret.text_after = 12;
  Manner manner = Full();
  EXPECT_EQ(FullSentence(area, manner), "textarea, Letter, " + area.value);
  manner.field_caret = true;
  EXPECT_EQ(FullSentence(area, manner), "textarea, Letter, the bridge");
  area.caret.line = "the";
  EXPECT_EQ(FullSentence(area, manner), "textarea, Letter, the");
}

TEST(FocusWords, TheGroupsThatAreEnteredComeFirstAndOnce) {
  const Manner manner = Full();
  FocusWords words(manner);
  ElementFacts facts = SomeFacts("button", "Yes");
  facts.groups = {{7, "dialog", "Delete file?", "", 0, 0, ""}};
  const HTMLElement yes = Element("HTMLButtonElement", "submit", facts);
  EXPECT_EQ(words.Of(yes, "submit, Yes"), "Delete file?, dialog, button, Yes");
  EXPECT_EQ(words.Of(yes, "submit, Yes"), "button, Yes");
  words.Forget();
  EXPECT_EQ(words.Of(yes, "submit, Yes"), "Delete file?, dialog, button, Yes");
}

TEST(FocusWords, AChoiceInAListIsSaidWithItsPlaceAndTheGroupThatItBegins) {
  const Manner manner = Full();
  FocusWords words(manner);
  ElementFacts facts = SomeFacts("combobox", "Meals");
  facts.groups = {{7, "group", "Warm", "", 0, 0, ""}};
  HTMLElement list = Element("HTMLSelectElement", "select-one", facts);
  list.options = {"Soup", "Dumplings", "Salad"};
  EXPECT_EQ(words.OfChoice(list, "Dumplings", 1), "Warm, group, Dumplings, 2 of 3");
  EXPECT_EQ(words.OfChoice(list, "Soup", 0), "Soup, 1 of 3");
  EXPECT_EQ(words.OfChoice(list, "", -1), "");
  const Manner established;
  FocusWords plain(established);
  EXPECT_EQ(plain.OfChoice(list, "Soup", 0), "Soup");
}

TEST(FocusWords, AFrameThatCountsItsElementsAnewIsAnotherGroup) {
  const Manner manner = Full();
  FocusWords words(manner);
  ElementFacts outside = SomeFacts("button", "Larger");
  outside.number = 3;
  ElementFacts inside = SomeFacts("link", "Harbour");
  inside.groups = {{3, "frame", "Map", "", 0, 0, ""}};
  words.Of(Element("HTMLButtonElement", "button", outside), "");
  EXPECT_EQ(words.Of(Element("HTMLAnchorElement", "", inside), ""), "Map, frame, Harbour, link");
}

TEST(FocusWords, AGroupThatHasTheFocusIsNotSaidAgainOnTheWayIn) {
  const Manner manner = Full();
  FocusWords words(manner);
  ElementFacts set = SomeFacts("group", "Size");
  set.number = 7;
  EXPECT_EQ(words.Of(Element("HTMLFieldSetElement", "fieldset", set), "group, Size"),
            "group, Size");
  ElementFacts inner = SomeFacts("button", "Small");
  inner.groups = {{7, "group", "Size", "", 0, 0, ""}};
  EXPECT_EQ(words.Of(Element("HTMLButtonElement", "button", inner), ""), "button, Small");
}

TEST(FocusWords, TheEstablishedSentenceStaysWhereNothingElseIsWantedOrKnown) {
  const Manner established;
  FocusWords words(established);
  EXPECT_EQ(words.Of(Element("HTMLButtonElement", "submit", SomeFacts("button", "Yes")), "said"),
            "said");
  const Manner manner = Full();
  FocusWords full(manner);
  EXPECT_EQ(full.Of(HTMLElement(), "said"), "said");
}

}  // namespace
}  // namespace corvane
