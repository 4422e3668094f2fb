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
