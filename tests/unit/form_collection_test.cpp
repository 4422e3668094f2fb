#include "tests/unit/announcer_fixture.h"

namespace corvane::tests {
namespace {

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

TEST_F(FormAnnouncers, WholeFormsLeaveTheSlotOfAButtonEmptyAndGoOn) {
  manner.whole_forms = true;
  auto page = MakePage("http://p/", "P", "");
  const auto before = Input("text", "before");
  const auto after = Input("text", "after");
  page->forms = {{{before, Field("HTMLButtonElement", "submit")}}, {{after}}};
  bool done = false;
  forms.ResetStructure(page, [&] { done = true; });
  EXPECT_TRUE(done);
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
  EXPECT_EQ(forms.Elements().size(), 4U);
  EXPECT_EQ(forms.Elements()[1], nullptr);
  before->onfocus.Raise();
  after->onfocus.Raise();
  EXPECT_THAT(said, ElementsAre("text, before, ", "text, after, "));
}

TEST_F(FormAnnouncers, WhatWaitsForTheWalkWaitsForItsMessageToBeClosed) {
  desktop.boxes.stay_open = true;
  auto page = MakePage("http://p/", "P", "");
  page->forms = {{{Field("HTMLButtonElement", "submit")}}};
  int done = 0;
  forms.ResetStructure(page, [&] { ++done; });
  EXPECT_EQ(done, 0);
  desktop.boxes.Close();
  EXPECT_EQ(done, 1);
  page->forms = {{{Input("text", "q")}}};
  forms.ResetStructure(page, [&] { ++done; });
  EXPECT_EQ(done, 2);
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

}  // namespace
}  // namespace corvane::tests
