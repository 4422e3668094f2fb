#include "tests/unit/announcer_fixture.h"

namespace corvane::tests {
namespace {

TEST_F(FormAnnouncers, CheckedRadioButtonWithTextBehindIt) {
  const auto radio = Input("radio", "size");
  radio->text_after_end = "Large";
  radio->value = "l";
  radio->status = true;
  EXPECT_EQ(Focus(radio), "radio, size, Large, selected");
  radio->status = false;
  EXPECT_EQ(Focus(radio), "radio, size, Large, unselected");
}

TEST_F(FormAnnouncers, CheckBoxWithoutTextSaysItsValueInItsPlace) {
  const auto box = Input("checkbox", "terms");
  box->value = "on";
  EXPECT_EQ(Focus(box), "checkbox, terms, on, unchecked");
  box->status = true;
  EXPECT_EQ(Focus(box), "checkbox, terms, on, checked");
}

TEST_F(FormAnnouncers, TypesAreComparedWithoutRegardToCase) {
  const auto radio = Input("RADIO", "size");
  radio->value = "l";
  EXPECT_EQ(Focus(radio), "RADIO, size, l, unselected");
  const auto field = Input("Text", "q");
  EXPECT_EQ(Focus(field), "Text, q, ");
  EXPECT_EQ(KeyUp(*field, "x", 0), "x");
}

TEST_F(FormAnnouncers, TextFieldWithoutTextBeforeItHasThreeParts) {
  const auto field = Input("text", "q");
  field->value = "cats";
  EXPECT_EQ(Focus(field), "text, q, cats");
}

TEST_F(FormAnnouncers, NamelessTextFieldWithALabelHasFourParts) {
  const auto field = Input("text");
  field->text_before_begin = "Your name";
  EXPECT_EQ(Focus(field), "text, , Your name, ");
}

TEST_F(FormAnnouncers, PasswordIsTreatedLikeText) {
  const auto field = Input("password", "pin");
  field->text_before_begin = "Code";
  field->value = "12";
  EXPECT_EQ(Focus(field), "password, pin, Code, 12");
  EXPECT_EQ(KeyUp(*field, "123", 0), "123");
  EXPECT_EQ(KeyUp(*field, "1234", 0), "4");
}

TEST_F(FormAnnouncers, ButtonsSayTypeAndValue) {
  for (const char* type : {"submit", "reset", "button", "image", "file", "hidden"}) {
    const auto button = Input(type, "go");
    button->value = "Search";
    button->text_before_begin = "Words";
    EXPECT_EQ(Focus(button), std::string(type) + ", Search");
    EXPECT_EQ(KeyUp(*button, "Search", 0), "nothing");
  }
}

TEST_F(FormAnnouncers, SelectSaysItsChoiceAndOnChangeTheChoiceAlone) {
  const auto select = Field("HTMLSelectElement", "select-one", "colour");
  select->options = {"Red", "Green", "Blue"};
  select->selectedIndex = 0;
  EXPECT_EQ(Focus(select), "select-one, colour, Red");
  said.clear();
  select->selectedIndex = 2;
  select->onchange.Raise();
  EXPECT_THAT(said, ElementsAre("Blue"));
  EXPECT_EQ(Focus(select), "select-one, colour, Blue");
}

TEST_F(FormAnnouncers, SelectWithoutAChoiceHasAnEmptyThirdPart) {
  const auto select = Field("HTMLSelectElement", "select-multiple", "colour");
  EXPECT_EQ(Focus(select), "select-multiple, colour, ");
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
}

TEST_F(FormAnnouncers, TextAreaWithAndWithoutTextBeforeIt) {
  const auto area = Field("HTMLTextAreaElement", "textarea", "letter");
  area->value = "Dear";
  EXPECT_EQ(Focus(area), "textarea, letter, Dear");
  area->text_before_begin = "Your letter";
  EXPECT_EQ(Focus(area), "textarea, letter, Your letter, Dear");
  EXPECT_EQ(KeyUp(*area, "Dear", 0), "Dear");
}

TEST_F(FormAnnouncers, TypedLettersAreSpokenAndHomeAndEndSpeakWhatIsPassed) {
  const auto field = Input("text", "q");
  Reset({field});
  EXPECT_EQ(KeyUp(*field, "a", 0), "a");
  EXPECT_EQ(KeyUp(*field, "ab", 0), "b");
  EXPECT_EQ(KeyUp(*field, "ab", 2), "ab");
  EXPECT_EQ(KeyUp(*field, "ab", 0), "ab");
  EXPECT_EQ(KeyUp(*field, "ab", 1), "b");
}

TEST_F(FormAnnouncers, KeyThatDoesNotMoveTheCaretHasAnEmptySentence) {
  const auto field = Input("text", "q");
  Reset({field});
  KeyUp(*field, "a", 0);
  EXPECT_EQ(KeyUp(*field, "a", 0), "");
}

TEST_F(FormAnnouncers, SelectedTextGivesItsLengthAsThePlace) {
  const auto field = Input("text", "q");
  Reset({field});
  KeyUp(*field, "hello", 0);
  EXPECT_EQ(KeyUp(*field, "hello", 3, 2), "llo");  // from 5 back to 2
}

TEST_F(FormAnnouncers, CaretPlaceOutlivesTheFocus) {
  const auto field = Input("text", "q");
  Reset({field});
  KeyUp(*field, "abc", 0);
  field->onfocus.Raise();
  EXPECT_EQ(KeyUp(*field, "abcd", 0), "d");
}

TEST_F(FormAnnouncers, CharactersAreNeverCutInTwo) {
  const auto field = Input("text", "q");
  Reset({field});
  EXPECT_EQ(KeyUp(*field, "a\U0001F600", 0), "a\U0001F600");
  EXPECT_EQ(KeyUp(*field, "a\U0001F600", 1), "\U0001F600");
}

TEST_F(FormAnnouncers, CombiningMarkIsACharacterOfItsOwn) {
  const auto field = Input("text", "q");
  Reset({field});
  EXPECT_EQ(KeyUp(*field, "e", 0), "e");
  EXPECT_EQ(KeyUp(*field, "e\u0301", 0), "\u0301");
}

TEST_F(FormAnnouncers, CaretThatThePageReportsOutsideTheFieldIsHeldInside) {
  const auto field = Input("text", "q");
  Reset({field});
  EXPECT_EQ(KeyUp(*field, "abc", 99), "");
  EXPECT_EQ(KeyUp(*field, "abc", -5), "abc");
  EXPECT_EQ(KeyUp(*field, "abc", 0, 1'000'000), "");
}

}  // namespace
}  // namespace corvane::tests
