// What today's manner adds to the sentences, and that the established one does not.
#include "tests/unit/announcer_fixture.h"

namespace corvane::tests {
namespace {

using Edit = ElementCaret::Edit;

struct TodaysAnnouncers : FormAnnouncers {
  TodaysAnnouncers() { manner.today = true; }
};

TEST_F(TodaysAnnouncers, RemovedCharactersAreSaid) {
  const auto field = Input("text", "q");
  field->value = "hello";
  Focus(field);
  EXPECT_EQ(Edited(*field, Edit::Removed, "hell", 0), "o");
  EXPECT_EQ(Edited(*field, Edit::Removed, "hel", 0), "l");
  EXPECT_EQ(KeyUp(*field, "hel", 2), "el");
  EXPECT_EQ(Edited(*field, Edit::Removed, "hl", 1), "e") << "Delete under the caret";
  EXPECT_EQ(Edited(*field, Edit::Removed, "", 0), "hl") << "a whole selection";
}

TEST_F(TodaysAnnouncers, WhichOfEqualLettersIsKnownByTheCaret) {
  const auto field = Input("text", "q");
  field->value = "aaa";
  Focus(field);
  EXPECT_EQ(Edited(*field, Edit::Typed, "aaaa", 2), "a");
  EXPECT_EQ(KeyUp(*field, "aaaa", 1), "a") << "the caret went on from where it was";
}

TEST_F(TodaysAnnouncers, CharacterThatReplacesASelectionIsSaid) {
  const auto field = Input("text", "q");
  field->value = "Ann";
  Focus(field);
  KeyUp(*field, "Ann", 0);
  EXPECT_EQ(Edited(*field, Edit::Typed, "x", 0), "x");
}

TEST_F(TodaysAnnouncers, CharactersOfSeveralBytesStayWhole) {
  const auto field = Input("text", "q");
  field->value = "a\u00e9";
  Focus(field);
  EXPECT_EQ(Edited(*field, Edit::Typed, "a\u00e8", 0), "\u00e8") << "they share a byte";
  EXPECT_EQ(Edited(*field, Edit::Removed, "a", 0), "\u00e8");
  EXPECT_EQ(Edited(*field, Edit::Typed, "\U0001F600a", 1), "\U0001F600");
}

TEST_F(TodaysAnnouncers, WhatAScriptTakesAwayIsNotSaid) {
  const auto field = Input("text", "q");
  field->value = "sent";
  Focus(field);
  KeyUp(*field, "sent", 0);
  EXPECT_EQ(KeyUp(*field, "", 0), "") << "Enter has sent it";
}

TEST_F(TodaysAnnouncers, TextAreaSaysWhatIsRemovedToo) {
  const auto area = Field("HTMLTextAreaElement", "textarea", "letter");
  area->value = "Dear";
  Focus(area);
  EXPECT_EQ(Edited(*area, Edit::Removed, "Dea", 0), "r");
}

TEST_F(FormAnnouncers, EstablishedMannerSaysNothingOfWhatIsRemoved) {
  const auto field = Input("text", "q");
  field->value = "ab";
  Reset({field});
  KeyUp(*field, "ab", 0);
  EXPECT_EQ(Edited(*field, Edit::Removed, "a", 0), "");
}

TEST_F(TodaysAnnouncers, WhatTheAuthorCallsAFieldStandsWhereNoTextIs) {
  const auto field = Input("text", "q");
  field->label = "Search the shop";
  EXPECT_EQ(Focus(field), "text, q, Search the shop, ");
  field->text_before_begin = "Search";
  EXPECT_EQ(Focus(field), "text, q, Search, ");
  const auto box = Input("checkbox", "cb");
  box->value = "on";
  box->label = "I agree";
  EXPECT_EQ(Focus(box), "checkbox, cb, I agree, unchecked");
  const auto button = Input("submit");
  button->label = "Go";
  EXPECT_EQ(Focus(button), "submit, Go");
  const auto area = Field("HTMLTextAreaElement", "textarea", "letter");
  area->label = "Your letter";
  EXPECT_EQ(Focus(area), "textarea, letter, Your letter, ");
  const auto list = Field("HTMLSelectElement", "select-one", "size");
  list->label = "Size";
  EXPECT_EQ(Focus(list), "select-one, size, Size, ");
}

TEST_F(FormAnnouncers, EstablishedMannerLeavesOutWhatTheAuthorCallsAField) {
  const auto field = Input("text", "q");
  field->label = "Search the shop";
  EXPECT_EQ(Focus(field), "text, q, ");
  const auto box = Input("checkbox", "cb");
  box->value = "on";
  box->label = "I agree";
  EXPECT_EQ(Focus(box), "checkbox, cb, on, unchecked");
}

TEST_F(TodaysAnnouncers, LinkWithoutTextIsCalledByItsPictureElseItsAddress) {
  const auto link = Link("");
  link->href = "http://w/";
  forms.AddLink(link);
  link->onfocus.Raise();
  link->label = "The weather";
  link->onfocus.Raise();
  link->innerText = "Weather";
  link->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("http://w/", "The weather", "Weather"));
}

TEST_F(FormAnnouncers, EstablishedMannerSaysALinksTextAlone) {
  const auto link = Link("");
  link->href = "http://w/";
  link->label = "The weather";
  forms.AddLink(link);
  link->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre(""));
}

struct HiddenPasswords : FormAnnouncers {
  HiddenPasswords() { manner.hide_passwords = manner.today = true; }
};

TEST_F(HiddenPasswords, EachCharacterIsAStar) {
  const auto field = Input("password", "pin");
  field->text_before_begin = "Code";
  field->value = "1\u00e9";
  EXPECT_EQ(Focus(field), "password, pin, Code, star star");
  EXPECT_EQ(Edited(*field, Edit::Typed, "1\u00e93", 0), "star");
  EXPECT_EQ(KeyUp(*field, "1\u00e93", 3), "star star star");
  EXPECT_EQ(Edited(*field, Edit::Removed, "\u00e93", 2), "star");
}

TEST_F(HiddenPasswords, OtherFieldsAreHeard) {
  const auto field = Input("text", "q");
  field->value = "cats";
  EXPECT_EQ(Focus(field), "text, q, cats");
}

struct ListOfASelect : FormAnnouncers {
  HTMLElementPtr select = Field("HTMLSelectElement", "select-one", "harbour");

  ListOfASelect() {
    manner.full_sentences = true;
    select->options = {"Malmo", "Gdansk", "Tallinn"};
    select->selectedIndex = 1;
    Reset({select});
  }
  void Reach(const std::string& option, int place, const std::string& group = "") {
    select->list = {true, option, group, place, 3};
    select->onlist.Raise();
  }
  void Close(const std::string& option) {
    select->list = {false, option, "", 0, 3};
    select->onlist.Raise();
  }
  void Change(int index) {
    select->selectedIndex = index;
    select->onchange.Raise();
  }
};

TEST_F(ListOfASelect, IsHeardAsItOpensIsWalkedAndCloses) {
  Reach("Gdansk", 2);
  Reach("Tallinn", 3);
  Close("Tallinn");
  Change(2);
  EXPECT_THAT(said,
              ElementsAre("expanded, Gdansk, 2 of 3", "Tallinn, 3 of 3", "collapsed, Tallinn"));
  Change(0);
  EXPECT_EQ(said.back(), "Malmo") << "a key has chosen it without the list";
}

TEST_F(ListOfASelect, LeftWithoutAChoiceSaysWhatStays) {
  Reach("Gdansk", 2);
  Reach("Tallinn", 3);
  Close("Gdansk");
  EXPECT_EQ(said.back(), "collapsed, Gdansk");
  Change(0);
  EXPECT_EQ(said.back(), "Malmo");
}

TEST_F(ListOfASelect, SaysTheGroupOfOptionsThatIsEntered) {
  Reach("Fish soup", 1, "Warm");
  Reach("Dumplings", 2, "Warm");
  Reach("Salad", 3, "Cold");
  EXPECT_THAT(said, ElementsAre("expanded, Warm, group, Fish soup, 1 of 3", "Dumplings, 2 of 3",
                                "Cold, group, Salad, 3 of 3"));
}

TEST_F(ListOfASelect, EstablishedMannerHearsTheChoiceAlone) {
  manner.full_sentences = false;
  Reach("Gdansk", 2);
  Reach("Tallinn", 3);
  Close("Tallinn");
  EXPECT_THAT(said, IsEmpty());
  Change(2);
  EXPECT_THAT(said, ElementsAre("Tallinn"));
}

}  // namespace
}  // namespace corvane::tests
