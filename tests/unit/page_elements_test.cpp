#include "tests/unit/announcer_fixture.h"

namespace corvane::tests {
namespace {

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
  EXPECT_THAT(program.Spoken(), ElementsAre("button, Send"));
}

TEST_F(PageElementsOfAProgram, ButtonsSetsAndObjectsAreCalledByPlainWords) {
  const auto button = Field("HTMLButtonElement", "reset");
  button->label = "Clear";
  const auto set = Field("HTMLFieldSetElement", "fieldset");
  set->innerText = "Address Street Town";
  set->label = "Address";
  const auto object = Field("HTMLObjectElement", "application/pdf");
  object->label = "The plan";
  Read({button, set, object});
  for (const auto& element : {button, set, object}) element->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("button, Clear", "group, Address", "object, The plan"));
}

TEST_F(PageElementsOfAProgram, MessageOfTheFormsComesFirstAndTheReadingGoesOnBehindIt) {
  program.StartTalking();
  program.Spoken();
  program.desktop.boxes.stay_open = true;
  auto page = MakePage("http://p/", "P", "");
  page->forms = {{{Field("HTMLButtonElement", "submit")}}};
  program.Read(page);
  EXPECT_THAT(program.Spoken(),
              ElementsAre("Working...", "Done", "Extracting Data ...", "Extracting Forms ..."));
  EXPECT_EQ(program.desktop.boxes.shown.size(), 1U);
  program.desktop.boxes.Close();
  EXPECT_THAT(program.Spoken(), ElementsAre("Extracting Links ...", "0 Links in P", "Done", "P"));
}

TEST_F(PageElementsOfAProgram, MessageThatIsClosedOverTheNextPageEndsNothing) {
  program.StartTalking();
  program.desktop.boxes.stay_open = true;
  auto page = MakePage("http://p/", "P", "");
  page->forms = {{{Field("HTMLButtonElement", "submit")}}};
  program.Read(page);
  program.Read(MakePage("http://q/", "Q", ""));
  program.Spoken();
  program.desktop.boxes.Close();
  EXPECT_THAT(program.Spoken(), IsEmpty());
}

TEST_F(PageElementsOfAProgram, MessageThatIsClosedAfterTheWindowIsHarmless) {
  auto desktop_outlives = std::make_unique<Program>();
  desktop_outlives->StartTalking();
  desktop_outlives->desktop.boxes.stay_open = true;
  auto page = MakePage("http://p/", "P", "");
  page->forms = {{{Field("HTMLButtonElement", "submit")}}};
  desktop_outlives->Read(page);
  desktop_outlives->Window(0)->Unload();
  desktop_outlives->Spoken();
  desktop_outlives->desktop.boxes.Close();
  EXPECT_THAT(desktop_outlives->Spoken(), IsEmpty());
}

TEST_F(PageElementsOfAProgram, FieldThatThePageFocusesByItselfIsSaidBehindTheTitle) {
  program.StartTalking();
  program.Spoken();
  auto page = MakePage("http://p/", "P", "");
  const auto field = Input("text", "q");
  page->forms = {{{field}}};
  program.Read(page);
  EXPECT_EQ(program.Browser().focus_asked, 1);
  program.Spoken();
  page->unasked = true;
  field->onfocus.Raise();
  page->unasked = false;
  EXPECT_THAT(program.Spoken(), IsEmpty()) << "the title is being said";
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre("text, q, "));
  field->onfocus.Raise();
  EXPECT_THAT(program.Spoken(), ElementsAre("text, q, "));
}

TEST_F(PageElementsOfAProgram, FieldThatThePageFocusesWhileItIsReadIsSaidBehindTheTitle) {
  program.StartTalking();
  program.Spoken();
  auto page = MakePage("http://p/", "P", "");
  const auto field = Input("text", "q");
  page->forms = {{{field}}};
  bool focused = false;
  program.desktop.on_yield = [&] {
    if (program.TextPane().text.find("Extracting Links") == std::string::npos) return;
    if (std::exchange(focused, true)) return;
    page->unasked = true;
    field->onfocus.Raise();
    page->unasked = false;
  };
  program.Read(page);
  EXPECT_TRUE(focused);
  EXPECT_EQ(program.Spoken().back(), "P");
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre("text, q, "));
}

TEST_F(PageElementsOfAProgram, HiddenPasswordIsNeverWrittenIntoTheTextPane) {
  program.desktop.settings.Pane("Passwords") = "hidden";
  const auto field = Input("password", "pin");
  field->value = "secret";
  Read({field});
  field->onfocus.Raise();
  field->caret = {0, 0};
  field->onkeyup.Raise();
  const std::string stars = "star star star star star star";
  EXPECT_THAT(program.Spoken(), ElementsAre("password, pin, " + stars, stars));
  EXPECT_THAT(program.TextPane().Text(), ::testing::Not(::testing::HasSubstr("secret")));
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
