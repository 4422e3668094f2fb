// Fields of later kinds: parts, steps and what the page does not tell of them.
#include "tests/unit/announcer_fixture.h"

namespace corvane::tests {
namespace {

HTMLElementPtr OfKind(const std::string& kind, const std::string& name = "") {
  auto input = Input("text", name);
  input->kind = kind;
  return input;
}

TEST_F(FormAnnouncers, WhatIsTypedLikeTextIsCalledText) {
  for (const char* kind : {"email", "search", "tel", "url"}) {
    EXPECT_EQ(Focus(OfKind(kind, "q")), "text, q, ") << kind;
  }
}

TEST_F(FormAnnouncers, OtherLaterKindsHaveWordsOfTheirOwn) {
  const auto slider = OfKind("range", "vol");
  slider->value = "50";
  slider->text_before_begin = "Volume";
  EXPECT_EQ(Focus(slider), "slider, vol, Volume, 50");
  EXPECT_EQ(Focus(OfKind("number", "n")), "number field, n, ");
  EXPECT_EQ(Focus(OfKind("color", "c")), "colour field, c, ");
  EXPECT_EQ(Focus(OfKind("datetime-local", "d")), "date and time field, d, ");
}

TEST_F(FormAnnouncers, EachStepIsSaidAndTheReleaseOfItsKeyAddsNothing) {
  for (const char* kind : {"range", "number"}) {
    const auto field = OfKind(kind, "vol");
    Reset({field});
    said.clear();
    for (const char* value : {"9", "10", "11"}) {
      field->value = value;
      field->onchange.Raise();
    }
    field->caret = {0, 0};
    field->onkeyup.Raise();
    EXPECT_THAT(said, ElementsAre("9", "10", "11")) << kind;
  }
}

TEST_F(FormAnnouncers, NumberThatIsTypedIsHeardDigitByDigit) {
  const auto field = OfKind("number", "n");
  Reset({field});
  EXPECT_EQ(KeyUp(*field, "1", 0), "1");
  EXPECT_EQ(KeyUp(*field, "12", 0), "2");
  EXPECT_EQ(KeyUp(*field, "12", 1), "2");
}

TEST_F(FormAnnouncers, ChangeOfATextFieldThatIsLeftIsNotSaid) {
  const auto field = Input("text", "q");
  Reset({field});
  field->value = "typed";
  field->onchange.Raise();
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FormAnnouncers, WhereTheCaretIsUnknownOnlyWhatWasAddedIsSaid) {
  const auto field = OfKind("email", "mail");
  Reset({field});
  const auto key = [&](const std::string& value) {
    said.clear();
    field->value = value;
    field->caret = {0, 0, false};
    field->onkeyup.Raise();
    return said.back();
  };
  EXPECT_EQ(key("a"), "a");
  EXPECT_EQ(key("ab"), "b");
  EXPECT_EQ(key("ab"), "") << "the caret may have moved anywhere";
  EXPECT_EQ(key("b"), "");
}

struct DateField : FormAnnouncers {
  HTMLElementPtr date = OfKind("date", "d");
  void At(const std::string& part, const std::string& value) {
    date->part = part;
    date->part_value = value;
  }
  std::string Key(const std::string& part, const std::string& value) {
    said.clear();
    At(part, value);
    date->onkeyup.Raise();
    return said.back();
  }
};

TEST_F(DateField, SaysThePartThatTheFocusIsInWithItsValue) {
  date->value = "2024-05-17";
  At("month", "05");
  EXPECT_EQ(Focus(date), "date field, d, 2024-05-17, month, 05");
}

TEST_F(DateField, SaysEachChangeAndEachPart) {
  At("month", "05");
  Focus(date);
  EXPECT_EQ(Key("month", "06"), "06");
  EXPECT_EQ(Key("month", "06"), "");
  EXPECT_EQ(Key("day", "17"), "day, 17");
  EXPECT_EQ(Key("year", "empty"), "year, empty");
}

TEST_F(FormAnnouncers, MultipleChoiceSaysWhatWasChosenOrLetGo) {
  const auto list = Field("HTMLSelectElement", "select-multiple", "many");
  list->options = {"A", "B", "C", "D", "E", "F", "G"};
  Reset({list});
  const auto choose = [&](std::vector<int> chosen) {
    said.clear();
    list->chosen = std::move(chosen);
    list->selectedIndex = list->chosen.empty() ? -1 : list->chosen.front();
    list->onchange.Raise();
    return said.back();
  };
  EXPECT_EQ(choose({0}), "A");
  EXPECT_EQ(choose({1}), "B") << "that A was let go is plain";
  EXPECT_EQ(choose({1, 2}), "C");
  EXPECT_EQ(choose({1}), "C, unselected");
  EXPECT_EQ(choose({}), "B, unselected");
  EXPECT_EQ(choose({0, 1, 2, 3, 4, 5, 6}), "A, B, C, D, E, 2 more");
  EXPECT_EQ(choose({0, 1, 2, 3, 4, 5, 6}), "");
}

TEST_F(FormAnnouncers, ChoicesOutsideTheListAreNothing) {
  const auto list = Field("HTMLSelectElement", "select-multiple", "many");
  Reset({list});
  list->chosen = {4};
  list->onchange.Raise();
  EXPECT_THAT(said, ElementsAre(""));
}

}  // namespace
}  // namespace corvane::tests
