#include "access/ElementWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/some_facts.h"

namespace corvane {
namespace {

using tests::SomeFacts;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ElementSentence, IsRoleNameStatesValuePlaceDescription) {
  ElementFacts tab = SomeFacts("tab", "Prices");
  tab.selected = Tri::Yes;
  tab.place = 2;
  tab.size = 3;
  tab.description = "of today";
  EXPECT_EQ(ElementSentence(tab), "tab, Prices, selected, 2 of 3, of today");
  ElementFacts slider = SomeFacts("slider", "Volume");
  slider.value = "42";
  EXPECT_EQ(ElementSentence(slider), "slider, Volume, 42");
  EXPECT_EQ(ElementSentence(SomeFacts("button", "Send")), "button, Send");
}

TEST(ElementSentence, LeavesNoGapsForWhatIsNotThere) {
  EXPECT_EQ(ElementSentence(SomeFacts("button", "")), "button");
  EXPECT_EQ(ElementSentence(SomeFacts("", "A box")), "A box");
  EXPECT_EQ(ElementSentence(ElementFacts()), "");
}

TEST(ElementSentence, TellsAButtonThatStaysPressedFromOthers) {
  ElementFacts mute = SomeFacts("button", "Mute");
  mute.pressed = Tri::No;
  EXPECT_EQ(ElementSentence(mute), "toggle button, Mute, not pressed");
  mute.pressed = Tri::Mixed;
  EXPECT_EQ(ElementSentence(mute), "toggle button, Mute, partly pressed");
}

TEST(ElementSentence, CallsARoleByThePagesOwnWord) {
  ElementFacts slide = SomeFacts("group", "One");
  slide.role_description = "slide";
  EXPECT_EQ(ElementSentence(slide), "slide, One");
}

TEST(ElementSentence, SaysEveryStateInItsOrder) {
  ElementFacts all = SomeFacts("treeitem", "All");
  all.checked = Tri::Mixed;
  all.pressed = Tri::Yes;
  all.expanded = Tri::No;
  all.selected = Tri::No;
  all.required = all.invalid = all.disabled = all.read_only = true;
  all.error = "Too short";
  all.popup = "menu";
  all.current = "step";
  all.sort = "ascending";
  all.level = 2;
  EXPECT_THAT(StateWords(all),
              ElementsAre("partly checked", "pressed", "collapsed", "not selected", "required",
                          "invalid", "Too short", "unavailable", "read only", "has menu",
                          "current step", "sorted ascending", "level 2"));
}

TEST(ElementSentence, ASwitchIsOnOrOff) {
  ElementFacts light = SomeFacts("switch", "Light");
  light.checked = Tri::Yes;
  EXPECT_EQ(ElementSentence(light), "switch, Light, on");
  light.checked = Tri::No;
  EXPECT_EQ(ElementSentence(light), "switch, Light, off");
}

TEST(ElementSentence, ThatAComboBoxHasAListGoesWithoutSaying) {
  ElementFacts field = SomeFacts("combobox", "Country");
  field.popup = "listbox";
  field.expanded = Tri::No;
  EXPECT_EQ(ElementSentence(field), "combo box, Country, collapsed");
  field.popup = "grid";
  EXPECT_EQ(ElementSentence(field), "combo box, Country, collapsed, has grid");
}

TEST(ElementSentence, ACellSaysItsRowAndColumn) {
  ElementFacts cell = SomeFacts("gridcell", "12");
  cell.row = 2;
  cell.column = 1;
  EXPECT_EQ(ElementSentence(cell), "cell, 12, row 2, column 1");
}

TEST(GroupWords, AreNameKindAndSize) {
  EXPECT_EQ(GroupWords({1, "dialog", "Delete file?", "", 0, 0, ""}), "Delete file?, dialog");
  EXPECT_EQ(GroupWords({1, "table", "Prices", "", 1, 2, ""}), "Prices, table, 1 row, 2 columns");
  EXPECT_EQ(GroupWords({1, "toolbar", "", "", 0, 0, ""}), "tool bar");
  EXPECT_EQ(GroupWords({1, "region", "News", "carousel", 0, 0, ""}), "News, carousel");
}

TEST(EnteredWords, AreThoseOfGroupsThatTheFocusWasNotIn) {
  const ElementGroup outer{1, "main", "", "", 0, 0, ""};
  const ElementGroup inner{2, "group", "Size", "", 0, 0, ""};
  EXPECT_THAT(EnteredWords({}, {outer, inner}), ElementsAre("main", "Size, group"));
  EXPECT_THAT(EnteredWords({outer}, {outer, inner}), ElementsAre("Size, group"));
  EXPECT_THAT(EnteredWords({outer, inner}, {outer, inner}), IsEmpty());
  EXPECT_THAT(EnteredWords({outer, inner}, {outer}), IsEmpty());
}

TEST(ChangeWords, AreTheNewStatesAlone) {
  ElementFacts before = SomeFacts("button", "More");
  before.expanded = Tri::No;
  before.level = 2;
  ElementFacts now = before;
  now.expanded = Tri::Yes;
  EXPECT_EQ(ChangeWords(before, now), "expanded");
  EXPECT_EQ(ChangeWords(before, before), "");
  before.value = "41 percent";
  now = before;
  now.value = "42 percent";
  EXPECT_EQ(ChangeWords(before, now), "42 percent");
}

TEST(ChangeWords, AnElementThatIsRightAgainIsSaidToBe) {
  ElementFacts before = SomeFacts("textbox", "Mail");
  before.invalid = true;
  before.disabled = true;
  ElementFacts now = before;
  now.invalid = now.disabled = false;
  EXPECT_EQ(ChangeWords(before, now), "valid, available");
}

TEST(MoreWords, AreWhatAnEstablishedSentenceLacks) {
  ElementFacts box = SomeFacts("checkbox", "Terms");
  box.checked = Tri::Yes;
  box.required = true;
  box.place = 3;
  box.size = 4;
  EXPECT_THAT(MoreWords(box, false), ElementsAre("required", "3 of 4"));
  EXPECT_THAT(MoreWords(box, true), ElementsAre("checked", "required", "3 of 4"));
}

TEST(ElementWords, OfAFieldsSuggestionsTheNumberIsSaidAndEachThatIsReached) {
  ElementFacts before;
  ElementFacts now;
  now.suggestions = 2;
  EXPECT_EQ(ChangeWords(before, now), "2 suggestions");
  EXPECT_EQ(ChangeWords(now, now), "");
  before = now;
  now.suggestions = 0;
  EXPECT_EQ(ChangeWords(before, now), "no suggestions");
  now.suggestions = -1;
  now.suggestion = "Birch";
  now.place = 2;
  now.size = 3;
  EXPECT_EQ(ChangeWords(before, now), "Birch, 2 of 3");
}

TEST(ElementSentence, OfAPlayerSaysWhereItIs) {
  ElementFacts song = SomeFacts("audio", "Song");
  song.value = "paused";
  song.position = 65;
  song.duration = 3600;
  EXPECT_EQ(ElementSentence(song), "audio, Song, paused, 1 minute 5 seconds of 1 hour");
  ElementFacts moved = song;
  moved.position = 70;
  moved.volume = 0;
  EXPECT_EQ(ChangeWords(song, moved), "1 minute 10 seconds of 1 hour, muted");
  song.position = song.duration = 0;
  EXPECT_EQ(ElementSentence(song), "audio, Song, paused");
}

}  // namespace
}  // namespace corvane
