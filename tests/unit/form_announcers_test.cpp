#include "access/AAFormCollection.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

HTMLElementPtr Field(const std::string& type_name, const std::string& type,
                     const std::string& name = "") {
  auto element = std::make_shared<HTMLElement>();
  element->type_name = type_name;
  element->type = type;
  element->name = name;
  return element;
}
HTMLElementPtr Input(const std::string& type, const std::string& name = "") {
  return Field("HTMLInputElement", type, name);
}
HTMLElementPtr Link(const std::string& words) {
  auto link = Field("HTMLAnchorElement", "");
  link->innerText = words;
  return link;
}

/// A collection whose sentences are kept.
struct FormAnnouncers : ::testing::Test {
  FakeDesktop desktop;
  AAFormCollection forms{desktop};
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
};

TEST_F(FormAnnouncers, PageWithoutFormsHasOneEmptySlotAndAnnouncesNothing) {
  forms.ResetStructure(MakePage("http://p/", "P", ""));
  ASSERT_EQ(forms.Elements().size(), 1U);
  EXPECT_EQ(forms.Elements()[0], nullptr);
  EXPECT_FALSE(forms.HasForms());
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FormAnnouncers, EveryElementOfEveryFormGetsASlot) {
  auto page = MakePage("http://p/", "P", "");
  page->forms = {{{Input("text"), Input("submit")}}, {{Field("HTMLSelectElement", "select-one")}}};
  forms.ResetStructure(page);
  EXPECT_TRUE(forms.HasForms());
  EXPECT_EQ(forms.Elements().size(), 4U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NE(forms.Elements()[i], nullptr) << i;
  EXPECT_EQ(forms.Doc(), page);
}

TEST_F(FormAnnouncers, ButtonElementStopsTheWalkWithAMessage) {
  auto page = MakePage("http://p/", "P", "");
  const auto before = Input("text", "before");
  const auto after = Input("text", "after");
  page->forms = {{{before, Field("HTMLButtonElement", "submit")}}, {{after}}};
  forms.ResetStructure(page);
  EXPECT_THAT(desktop.boxes.Texts(),
              ElementsAre("ResetStructure Error: Object variable or With block variable not set"));
  before->onfocus.Raise();
  after->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("text, before, "));
}

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

TEST_F(FormAnnouncers, LinksStartAtSlotOneInTheOrderOfTheirCalls) {
  const auto first = Link("one");
  const auto second = Link("two");
  forms.AddLink(first);
  forms.AddLink(second);
  ASSERT_EQ(forms.Links().size(), 3U);
  EXPECT_EQ(forms.Links()[0], nullptr);
  first->onfocus.Raise();
  second->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("one", "two"));
}

TEST_F(FormAnnouncers, AreaAndImageAddNoLink) {
  forms.AddLink(Field("HTMLAreaElement", ""));
  forms.AddLink(Field("HTMLImageElement", ""));
  EXPECT_EQ(forms.Links().size(), 1U);
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
}

TEST_F(FormAnnouncers, NoLinkAtAllIsReported) {
  forms.AddLink(nullptr);
  EXPECT_THAT(desktop.boxes.Texts(),
              ElementsAre("AddLink Error: Object variable or With block variable not set"));
}

TEST_F(FormAnnouncers, ClearedLinksAreNotHeardAnyMore) {
  const auto link = Link("one");
  forms.AddLink(link);
  forms.ClearLinkCollection();
  EXPECT_EQ(forms.Links().size(), 1U);
  link->onfocus.Raise();
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FormAnnouncers, ResetLeavesTheLinksAlone) {
  const auto link = Link("one");
  forms.AddLink(link);
  Reset({});
  link->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("one"));
}

TEST_F(FormAnnouncers, FieldsOfThePageBeforeAreNotHeardAnyMore) {
  const auto old = Input("text", "old");
  Reset({old});
  Reset({Input("text", "new")});
  old->onfocus.Raise();
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FormAnnouncers, FocusWhileTheWalkYieldsIsHeardFromFieldsThatAreReady) {
  const auto first = Input("text", "first");
  const auto second = Input("text", "second");
  int yields = 0;
  desktop.on_yield = [&] {
    if (++yields != 2) return;
    first->onfocus.Raise();
    second->onfocus.Raise();
  };
  Reset({first, second});
  EXPECT_THAT(said, ElementsAre("text, first, "));
  second->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("text, first, ", "text, second, "));
}

TEST_F(FormAnnouncers, NewerWalkReplacesTheOlderThatYields) {
  const auto old = Input("text", "old");
  const auto present = Input("text", "present");
  auto later = MakePage("http://q/", "Q", "");
  later->forms = {{{present}}};
  desktop.on_yield = [&] {
    desktop.on_yield = nullptr;
    forms.ResetStructure(later);
  };
  Reset({old, Input("text", "older")});
  EXPECT_EQ(forms.Doc(), later);
  EXPECT_EQ(forms.Elements().size(), 2U);
  old->onfocus.Raise();
  present->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("text, present, "));
}

TEST_F(FormAnnouncers, FailureOfTheListenerIsReported) {
  const auto failing = forms.SayEvent.Connect(
      [](const std::string&) { throw RunTimeError(kErrOverflow, "", "Overflow"); });
  Focus(Input("text"));
  EXPECT_THAT(desktop.boxes.Texts(), ElementsAre("Form Say Error: Overflow"));
}

TEST_F(FormAnnouncers, MissingDocumentIsReported) {
  forms.ResetStructure(nullptr);
  EXPECT_THAT(desktop.boxes.Texts(),
              ElementsAre("ResetStructure Error: Object variable or With block variable not set"));
}

TEST_F(FormAnnouncers, FieldsAndLinksThatAppearLaterAreAnnounced) {
  const auto page = Reset({});
  const auto late = Input("text", "late");
  page->onelementadded.Raise(late);
  late->onfocus.Raise();
  const auto link = Link("more");
  page->onelementadded.Raise(link);
  link->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("text, late, ", "more"));
}

TEST_F(FormAnnouncers, LaterElementWithoutAnAnnouncerIsNoError) {
  const auto page = Reset({});
  page->onelementadded.Raise(Field("HTMLButtonElement", "submit"));
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
}

// --- in the pane --------------------------------------------------------------

struct PageElementsOfAProgram : ::testing::Test {
  Program program;

  HTMLDocumentPtr Read(const std::vector<HTMLElementPtr>& elements) {
    program.StartTalking();
    auto page = MakePage("http://p/", "P", "");
    page->forms.push_back({elements});
    program.Read(page);
    program.Spoken();
    return page;
  }
};

TEST_F(PageElementsOfAProgram, SentenceIsSpokenAndWrittenAsALine) {
  const auto field = Input("text", "q");
  Read({field});
  field->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("text, q, "));
  EXPECT_THAT(program.TextPane().Text(), ::testing::EndsWith("text, q, \n"));
}

TEST_F(PageElementsOfAProgram, EmptySentenceIsNeitherSpokenNorWritten) {
  const auto field = Input("text", "q");
  Read({field});
  const std::string before = program.TextPane().Text();
  field->onkeyup.Raise();
  EXPECT_THAT(program.Spoken(), IsEmpty());
  EXPECT_EQ(program.TextPane().Text(), before);
}

TEST_F(PageElementsOfAProgram, LinksOfThePageAreAnnounced) {
  program.StartTalking();
  const auto page = MakePage("http://p/", "P", "", {{"The weather", "http://w/"}});
  program.Read(page);
  program.Spoken();
  page->links[0]->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("The weather"));
}

TEST_F(PageElementsOfAProgram, ButtonElementIsNeverSilent) {
  const auto button = Field("HTMLButtonElement", "submit");
  button->innerText = "Send";
  Read({button});
  button->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("submit, Send"));
}

TEST_F(PageElementsOfAProgram, ToggledCheckBoxSaysItsState) {
  const auto box = Input("checkbox", "terms");
  Read({box});
  box->status = true;
  box->onchange.Raise();
  box->status = false;
  box->onchange.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("checked", "unchecked"));
}

TEST_F(PageElementsOfAProgram, ElementsOfThePageBeforeAreSilent) {
  const auto button = Field("HTMLButtonElement", "submit");
  button->innerText = "Send";
  Read({button});
  program.Read(MakePage("http://q/", "Q", ""));
  program.Spoken();
  button->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
