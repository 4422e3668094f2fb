// Focus, key and change events of a page's elements, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class ElementEventTest : public PageTest {
 protected:
  /// Shows the form's content and logs the events of its elements.
  void Load(const std::string& content) {
    server_.Page("/", "<title>A</title><form onsubmit='return false'>" + content + "</form>");
    view_.Go(server_.Url());
    connections_.Clear();
    events_.clear();
    for (const auto& form : view_.Document()->forms) {
      for (const auto& element : form.elements) Listen(element);
    }
    for (const auto& link : view_.Document()->links) Listen(link);
    view_.Focus();
  }
  void Listen(const HTMLElementPtr& element) {
    connections_ += element->onfocus.Connect([this, element] { Log("focus", *element); });
    connections_ += element->onkeyup.Connect([this, element] { Log("keyup", *element); });
    connections_ += element->onchange.Connect([this, element] { Log("change", *element); });
  }
  void Log(const std::string& kind, const HTMLElement& element) {
    events_.push_back(kind + " " + (element.name.empty() ? element.innerText : element.name));
  }
  HTMLElement& Element(std::size_t index) {
    return *view_.Document()->forms.at(0).elements.at(index);
  }
  bool WaitFor(const std::string& event) {
    return WaitUntil(
        [&] { return std::find(events_.begin(), events_.end(), event) != events_.end(); });
  }
  /// Types a key and waits for its release to be reported.
  void Type(guint keyval, const std::string& name) {
    events_.clear();
    view_.Key(keyval);
    ASSERT_TRUE(WaitFor("keyup " + name)) << "no key release reported";
  }

  /// Moves to the next element, which must be this one.
  void TabTo(const std::string& name) {
    view_.Key(GDK_KEY_Tab);
    ASSERT_TRUE(WaitFor("focus " + name)) << "not reached";
  }

  std::vector<std::string> events_;
  Connections connections_;
};

TEST_F(ElementEventTest, TabStopsAtNoHiddenField) {
  Load("<style>input {display: block}</style><input type=hidden name=token><input name=q>");
  view_.Key(GDK_KEY_Tab);
  view_.Key(GDK_KEY_X);
  ASSERT_TRUE(WaitFor("keyup q")) << "one Tab leads past it";
}

TEST_F(ElementEventTest, TabReachesLinksAndFields) {
  Load("<a href=/x>Link</a><input name=q>");
  TabTo("Link");
  TabTo("q");
}

TEST_F(ElementEventTest, TheFocusedLinkShowsItsAddress) {
  Load("<a href=/target>Link</a>");
  TabTo("Link");
  EXPECT_TRUE(view_.HasStatus(server_.Url("/target")));
}

TEST_F(ElementEventTest, FocusBringsThePresentValue) {
  Load("<input name=q value=old>");
  view_.EvaluateInPage("document.forms[0].q.value = 'new'");
  TabTo("q");
  EXPECT_EQ(Element(0).value, "new");
}

TEST_F(ElementEventTest, TypingBringsValueAndCaret) {
  Load("<input name=q>");
  TabTo("q");
  Type(GDK_KEY_a, "q");
  EXPECT_EQ(Element(0).value, "a");
  EXPECT_EQ(Element(0).caret.text_after, 0);
  Type(GDK_KEY_b, "q");
  EXPECT_EQ(Element(0).value, "ab");
  Type(GDK_KEY_Left, "q");
  EXPECT_EQ(Element(0).caret.text_after, 1);
  Type(GDK_KEY_Home, "q");
  EXPECT_EQ(Element(0).caret.text_after, 2);
  Type(GDK_KEY_End, "q");
  EXPECT_EQ(Element(0).caret.text_after, 0);
  EXPECT_EQ(Element(0).caret.selection_length, 0);
}

TEST_F(ElementEventTest, CaretCountsCharactersNotUnits) {
  Load("<input name=q value='a😀b'>");
  TabTo("q");
  Type(GDK_KEY_Home, "q");
  EXPECT_EQ(Element(0).caret.text_after, 3);
  Type(GDK_KEY_Right, "q");
  Type(GDK_KEY_Right, "q");
  EXPECT_EQ(Element(0).caret.text_after, 1);
}

TEST_F(ElementEventTest, SelectionLength) {
  Load("<textarea name=t>some😀</textarea>");
  TabTo("t");
  view_.EvaluateInPage("document.forms[0].t.select()");
  Type(GDK_KEY_F9, "t");
  EXPECT_EQ(Element(0).caret.selection_length, 5);
}

TEST_F(ElementEventTest, PasswordAndLaterTypes) {
  Load("<input type=password name=p><input type=email name=e>");
  TabTo("p");
  Type(GDK_KEY_x, "p");
  EXPECT_EQ(Element(0).value, "x");
  TabTo("e");
  Type(GDK_KEY_y, "e");
  EXPECT_EQ(Element(1).value, "y");
  EXPECT_EQ(Element(1).kind, "email");
  EXPECT_FALSE(Element(1).caret.known) << "the engine keeps it from scripts";
  EXPECT_TRUE(Element(0).caret.known);
}

TEST_F(ElementEventTest, ADateIsToldWhenItGetsTheFocusAndWithEachKey) {
  Load("<input name=q><input type=date name=d value=2024-05-17>");
  TabTo("q");
  TabTo("d");
  EXPECT_EQ(Element(1).kind, "date");
  Type(GDK_KEY_Up, "d");
  EXPECT_EQ(Element(1).value, "2024-06-17");
}

TEST_F(ElementEventTest, EachStepOfANumberOrASliderIsAChangeAndTypingIsNone) {
  Load("<input type=range name=r><input type=number name=n value=5>");
  TabTo("r");
  events_.clear();
  view_.Key(GDK_KEY_Right);
  ASSERT_TRUE(WaitFor("keyup r"));
  EXPECT_THAT(events_, ElementsAre("change r", "keyup r"));
  EXPECT_EQ(Element(0).value, "51");
  TabTo("n");
  events_.clear();
  view_.Key(GDK_KEY_Up);
  ASSERT_TRUE(WaitFor("keyup n"));
  EXPECT_THAT(events_, ElementsAre("change n", "keyup n"));
  EXPECT_EQ(Element(1).value, "6");
  Type(GDK_KEY_End, "n");
  Type(GDK_KEY_7, "n");
  EXPECT_THAT(events_, ElementsAre("keyup n"));
  EXPECT_EQ(Element(1).value, "67");
}

TEST_F(ElementEventTest, WhatAKeyHasDoneToTheTextIsTold) {
  using Edit = ElementCaret::Edit;
  Load("<input name=q>");
  TabTo("q");
  Type(GDK_KEY_a, "q");
  EXPECT_EQ(Element(0).caret.edit, Edit::Typed);
  Type(GDK_KEY_Home, "q");
  EXPECT_EQ(Element(0).caret.edit, Edit::None);
  Type(GDK_KEY_Delete, "q");
  EXPECT_EQ(Element(0).caret.edit, Edit::Removed);
}

TEST_F(ElementEventTest, AllChoicesOfAListAreTold) {
  Load(
      "<select name=s size=3 multiple><option>One<option selected>Two<option "
      "selected>Three</select>");
  EXPECT_THAT(Element(0).chosen, ElementsAre(1, 2));
  TabTo("s");
  view_.EvaluateInPage("document.forms[0].s.options[0].selected = true");
  view_.Key(GDK_KEY_Down);
  ASSERT_TRUE(WaitFor("change s"));
  EXPECT_THAT(Element(0).chosen, SizeIs(1));
}

TEST_F(ElementEventTest, AuthorsWordsAreInTheRecord) {
  Load(R"(<input name=a aria-label=Label title=Title><input name=b title=Title placeholder=Place>
      <input name=c placeholder=Place><input name=d aria-labelledby="x none y">
      <button aria-label=Menu></button><button><img alt=Star></button>
      <fieldset><legend>Address</legend></fieldset><p id=y>second</p><p id=x>first</p>
      <a href=/1><img alt=Weather></a><a href=/2 aria-label=Home></a><a href=/3 title=More></a>
      <a href=/4><svg><title>Drawn</title></svg></a><a href=/5 aria-label=Other>Words</a>)");
  std::vector<std::string> labels;
  for (const auto& element : view_.Document()->forms.at(0).elements) {
    labels.push_back(element->label);
  }
  EXPECT_THAT(labels,
              ElementsAre("Label", "Title", "Place", "first second", "Menu", "Star", "Address"));
  labels.clear();
  for (const auto& link : view_.Document()->links) labels.push_back(link->label);
  EXPECT_THAT(labels, ElementsAre("Weather", "Home", "More", "Drawn", ""));
}

TEST_F(ElementEventTest, KeysGoIntoAPasswordAsLongAsItHasTheFocus) {
  Load("<input name=q><input type=password name=p><a href=/x>Link</a>");
  TabTo("q");
  EXPECT_FALSE(view_->InPassword());
  TabTo("p");
  EXPECT_TRUE(view_->InPassword());
  TabTo("Link");
  EXPECT_FALSE(view_->InPassword());
  view_.EvaluateInPage("document.forms[0].p.focus()");
  ASSERT_TRUE(WaitUntil([&] { return view_->InPassword(); }));
  view_.EvaluateInPage("document.forms[0].p.blur()");
  ASSERT_TRUE(WaitUntil([&] { return !view_->InPassword(); }));
}

TEST_F(ElementEventTest, TheFocusThatAPageHasSetIsToldWhenItIsAskedFor) {
  Load("<input name=q><input name=r autofocus>");
  std::vector<bool> unasked;
  connections_ += Element(1).onfocus.Connect([&] { unasked.push_back(view_.Document()->unasked); });
  view_->TellFocus();
  ASSERT_TRUE(WaitFor("focus r"));
  view_.EvaluateInPage("1");
  const auto told = std::count(events_.begin(), events_.end(), "focus r");
  EXPECT_TRUE(unasked.back());
  view_->TellFocus();
  view_.EvaluateInPage("1");
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "focus r"), told) << "told twice";
  events_.clear();
  view_.Key(GDK_KEY_ISO_Left_Tab);
  TabTo("r");
  EXPECT_FALSE(unasked.back()) << "the user has gone there";
}

TEST_F(ElementEventTest, AMoveThatIsAboutToBeToldIsToldOnceAsTheUsersOwn) {
  Load("<input name=q><input name=r>");
  TabTo("q");
  std::vector<bool> unasked;
  connections_ += Element(1).onfocus.Connect([&] { unasked.push_back(view_.Document()->unasked); });
  Evaluate(view_.View(), "(document.forms[0].r.focus(), corvaneEvents.tellAgain(), '')",
           [](const auto&) {});
  ASSERT_TRUE(WaitFor("focus r"));
  view_.EvaluateInPage("1");
  EXPECT_THAT(unasked, ElementsAre(false));
}

TEST_F(ElementEventTest, AMoveWhileThePageIsReadAgainIsToldToThoseWhoListenAfterwards) {
  Load("<input name=q><input name=r>");
  view_->TellFocus();
  TabTo("q");
  const auto old = view_.Document();
  view_->Do(WebBrowser::PageCommand::ReadAgain);
  ASSERT_TRUE(WaitUntil([&] { return view_.Document() && view_.Document() != old; }));
  connections_.Clear();  // who listened knows only the elements that were
  events_.clear();
  view_.Key(GDK_KEY_Tab);
  ASSERT_TRUE(
      WaitUntil([&] { return view_.EvaluateInPage("document.activeElement.name") == "r"; }));
  view_.EvaluateInPage("1");
  for (const auto& element : view_.Document()->forms.at(0).elements) Listen(element);
  view_->TellFocus();
  EXPECT_TRUE(WaitFor("focus r"));
}

TEST_F(ElementEventTest, NothingIsToldOfAPageInWhichNothingHasTheFocus) {
  Load("<input name=q>");
  view_->TellFocus();
  view_.EvaluateInPage("1");
  TabTo("q");
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "focus q"), 1);
}

TEST_F(ElementEventTest, TheReleaseOfAKeyPressedElsewhereIsNoTyping) {
  Load("<input name=q value=old><input name=r>");
  TabTo("q");
  Type(GDK_KEY_End, "q");
  events_.clear();
  TabTo("r");
  view_.Key(GDK_KEY_x);
  ASSERT_TRUE(WaitFor("keyup r"));
  EXPECT_THAT(events_, ElementsAre("focus r", "keyup r")) << "the release of Tab is none of them";
}

TEST_F(ElementEventTest, SpaceChangesACheckBox) {
  Load("<input type=checkbox name=c>");
  TabTo("c");
  EXPECT_FALSE(Element(0).status);
  view_.Key(GDK_KEY_space);
  ASSERT_TRUE(WaitFor("change c"));
  EXPECT_TRUE(Element(0).status);
}

TEST_F(ElementEventTest, SpaceChoosesARadioButton) {
  Load("<input type=radio name=r value=1>");
  TabTo("r");
  EXPECT_FALSE(Element(0).status);
  view_.Key(GDK_KEY_space);
  ASSERT_TRUE(WaitFor("change r"));
  EXPECT_TRUE(Element(0).status);
}

TEST_F(ElementEventTest, ASelectsNewOption) {
  Load("<select name=s size=3><option>One<option>Two<option>Three</select>");
  TabTo("s");
  view_.Key(GDK_KEY_Down);
  ASSERT_TRUE(WaitFor("change s"));
  EXPECT_EQ(Element(0).options.at(static_cast<std::size_t>(Element(0).selectedIndex)),
            Element(0).value);
  EXPECT_THAT(Element(0).options, SizeIs(3));
}

TEST_F(ElementEventTest, OptionsAddedLaterAreKnownAtFocus) {
  Load("<select name=s><option>One</select>");
  view_.EvaluateInPage("document.forms[0].s.add(new Option('Two'))");
  TabTo("s");
  EXPECT_THAT(Element(0).options, ElementsAre("One", "Two"));
}

TEST_F(ElementEventTest, EventsOfAFrameOfAnotherOrigin) {
  TestServer other;
  other.Page("/in", "<input name=before><form><input name=inner></form>");
  server_.Page("/", "<iframe src='" + other.Url("/in") + "'></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  ASSERT_THAT(view_.Document()->frames[0]->forms, SizeIs(1));
  Listen(view_.Document()->frames[0]->forms[0].elements.at(0));
  view_.Focus();
  view_.Key(GDK_KEY_Tab);
  TabTo("inner");
}

TEST_F(ElementEventTest, AnArrowReachesARadioButtonOnceAndChosen) {
  Load("<input type=radio name=a value=1 checked><input type=radio name=a value=2>");
  Connections more;
  std::vector<bool> chosen;
  more += Element(1).onfocus.Connect([&] { chosen.push_back(Element(1).status); });
  TabTo("a");
  events_.clear();
  view_.Key(GDK_KEY_Down);
  ASSERT_TRUE(WaitUntil([&] { return !chosen.empty(); }));
  EXPECT_THAT(chosen, ElementsAre(true));
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "change a"), 0) << "told with the focus";
}

TEST_F(ElementEventTest, PageScriptsCannotFakeEvents) {
  Load("<input name=q><input name=last>");
  view_.EvaluateInPage(R"(for (const type of ['focusin', 'keyup', 'change']) {
      document.forms[0].q.dispatchEvent(new Event(type, {bubbles: true})); } 1)");
  TabTo("q");
  TabTo("last");
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "focus q"), 1);
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "change q"), 0);
}

TEST_F(ElementEventTest, PageScriptsCannotSwallowEvents) {
  server_.Page("/", R"(<script>for (const type of ['focusin', 'keyup', 'change']) {
      addEventListener(type, event => event.stopImmediatePropagation(), true); }</script>
      <form><input name=q></form>)");
  view_.Go(server_.Url());
  Listen(view_.Document()->forms.at(0).elements.at(0));
  view_.Focus();
  TabTo("q");
  Type(GDK_KEY_a, "q");
}

TEST_F(ElementEventTest, EventsGoOnAfterGoingBack) {
  Load("<input name=q>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url("/b"));
  view_->GoBack();
  view_.WaitIdle();
  events_.clear();
  connections_.Clear();
  ASSERT_THAT(view_.Document()->forms, SizeIs(1));
  Listen(view_.Document()->forms[0].elements.at(0));
  view_.Focus();
  TabTo("q");
}

TEST_F(ElementEventTest, EnterOnALinkFollowsIt) {
  server_.Page("/target", "<title>Target</title>");
  Load("<a href=/target>Link</a>");
  TabTo("Link");
  view_.Key(GDK_KEY_Return);
  ASSERT_TRUE(WaitUntil([&] { return !view_->Busy() && view_.Document()->Title == "Target"; }));
}

}  // namespace
}  // namespace corvane::desktop
