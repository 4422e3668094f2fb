#include "access/FullSentence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "access/FocusWords.h"

namespace corvane {
namespace {

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

ElementFacts Facts(const char* role, const char* name) {
  ElementFacts facts;
  facts.role = role;
  facts.name = name;
  return facts;
}

TEST(FullSentence, ALinkIsItsNameAndItsRole) {
  HTMLElement link = Element("HTMLAnchorElement", "", Facts("link", "Prices"));
  link.innerText = "Prices";
  EXPECT_EQ(FullSentence(link, Full()), "Prices, link");
}

TEST(FullSentence, ALinkWithoutAnyNameIsItsAddress) {
  HTMLElement link = Element("HTMLAnchorElement", "", Facts("link", ""));
  link.href = "https://example.org/";
  EXPECT_EQ(FullSentence(link, Full()), "https://example.org/, link");
}

TEST(FullSentence, AFieldKeepsItsSentenceAndWhatItLacksFollows) {
  ElementFacts facts = Facts("textbox", "Search");
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
  HTMLElement field = Element("HTMLInputElement", "text", Facts("textbox", "Search"));
  field.name = "q";
  Manner manner = Full();
  manner.field_names = true;
  EXPECT_EQ(FullSentence(field, manner), "text, q, Search");
  field.facts = std::make_shared<ElementFacts>(Facts("textbox", ""));
  EXPECT_EQ(FullSentence(field, Full()), "text, q");
}

TEST(FullSentence, AChoiceSaysWhetherItIsMade) {
  ElementFacts facts = Facts("radio", "Large");
  facts.checked = Tri::Yes;
  facts.place = 2;
  facts.size = 3;
  HTMLElement radio = Element("HTMLInputElement", "radio", facts);
  radio.name = "size";
  radio.status = true;
  EXPECT_EQ(FullSentence(radio, Full()), "radio, Large, selected, 2 of 3");
  facts = Facts("checkbox", "All");
  facts.checked = Tri::Mixed;
  EXPECT_EQ(FullSentence(Element("HTMLInputElement", "checkbox", facts), Full()),
            "checkbox, All, partly checked");
}

TEST(FullSentence, AHiddenPasswordStaysHidden) {
  HTMLElement field = Element("HTMLInputElement", "password", Facts("password", "Password"));
  field.value = "ab";
  Manner manner = Full();
  manner.hide_passwords = true;
  EXPECT_EQ(FullSentence(field, manner), "password, Password, star star");
}

TEST(FullSentence, WhatThePageHasMadeOfAnElementIsWhatItIs) {
  ElementFacts facts = Facts("switch", "Light");
  facts.checked = Tri::No;
  EXPECT_EQ(FullSentence(Element("HTMLInputElement", "checkbox", facts), Full()),
            "switch, Light, off");
  EXPECT_EQ(FullSentence(Element("HTMLAnchorElement", "", Facts("button", "Send")), Full()),
            "button, Send");
}

TEST(FullSentence, AListSaysItsChoice) {
  ElementFacts facts = Facts("combobox", "Country");
  facts.place = 2;
  facts.size = 2;
  HTMLElement list = Element("HTMLSelectElement", "select-one", facts);
  list.options = {"France", "Spain"};
  list.selectedIndex = 1;
  EXPECT_EQ(FullSentence(list, Full()), "select-one, Country, Spain, 2 of 2");
}

TEST(FullSentence, APictureThatSendsAFormIsAButton) {
  HTMLElement image = Element("HTMLInputElement", "image", Facts("button", "Send as a card"));
  EXPECT_EQ(FullSentence(image, Full()), "image, Send as a card, button");
}

TEST(FullSentence, OfATextAreaTheLineAtTheCaretIsSaidWhereThatIsWanted) {
  HTMLElement area = Element("HTMLTextAreaElement", "textarea", Facts("textbox", "Letter"));
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
  ElementFacts facts = Facts("button", "Yes");
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
  ElementFacts facts = Facts("combobox", "Meals");
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
  ElementFacts outside = Facts("button", "Larger");
  outside.number = 3;
  ElementFacts inside = Facts("link", "Harbour");
  inside.groups = {{3, "frame", "Map", "", 0, 0, ""}};
  words.Of(Element("HTMLButtonElement", "button", outside), "");
  EXPECT_EQ(words.Of(Element("HTMLAnchorElement", "", inside), ""), "Map, frame, Harbour, link");
}

TEST(FocusWords, AGroupThatHasTheFocusIsNotSaidAgainOnTheWayIn) {
  const Manner manner = Full();
  FocusWords words(manner);
  ElementFacts set = Facts("group", "Size");
  set.number = 7;
  EXPECT_EQ(words.Of(Element("HTMLFieldSetElement", "fieldset", set), "group, Size"),
            "group, Size");
  ElementFacts inner = Facts("button", "Small");
  inner.groups = {{7, "group", "Size", "", 0, 0, ""}};
  EXPECT_EQ(words.Of(Element("HTMLButtonElement", "button", inner), ""), "button, Small");
}

TEST(FocusWords, TheEstablishedSentenceStaysWhereNothingElseIsWantedOrKnown) {
  const Manner established;
  FocusWords words(established);
  EXPECT_EQ(words.Of(Element("HTMLButtonElement", "submit", Facts("button", "Yes")), "said"),
            "said");
  const Manner manner = Full();
  FocusWords full(manner);
  EXPECT_EQ(full.Of(HTMLElement(), "said"), "said");
}

}  // namespace
}  // namespace corvane
