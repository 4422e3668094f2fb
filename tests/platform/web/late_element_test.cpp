// Elements that the page record does not hold, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class LateElementTest : public PageTest {
 protected:
  void Load(const std::string& content) {
    server_.Page("/", "<title>A</title>" + content);
    view_.Go(server_.Url());
    connections_.Clear();
    connections_ += view_.Document()->onelementadded.Connect([this](const HTMLElementPtr& element) {
      added_.push_back(element);
      connections_ += element->onfocus.Connect([this, element] { Log("focus", *element); });
      connections_ += element->onkeyup.Connect([this, element] { Log("keyup", *element); });
    });
    view_.Focus();
  }
  void Log(const std::string& kind, const HTMLElement& element) {
    log_.push_back(kind + " " + element.type_name + " " + element.type + " " +
                   (element.name.empty() ? element.innerText : element.name));
  }
  bool Heard(const std::string& entry) {
    return WaitUntil([&] { return std::find(log_.begin(), log_.end(), entry) != log_.end(); });
  }
  void Tab() { view_.Key(GDK_KEY_Tab); }

  std::vector<HTMLElementPtr> added_;
  std::vector<std::string> log_;
  Connections connections_;
};

TEST_F(LateElementTest, AFieldOutsideEveryFormIsToldWithItsFirstFocus) {
  Load("Your name <input name=q value=Ann>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_THAT(added_, SizeIs(1));
  EXPECT_EQ(added_[0]->text_before_begin, "Your name");
  EXPECT_EQ(added_[0]->value, "Ann");
  view_.Key(GDK_KEY_End);
  ASSERT_TRUE(Heard("keyup HTMLInputElement text q"));
  EXPECT_EQ(added_[0]->caret.text_after, 0);
  EXPECT_THAT(added_, SizeIs(1)) << "told once";
}

TEST_F(LateElementTest, AFrameWithNothingToComeToIsToldAsAWhole) {
  server_.Page("/in", "<title>In</title><p>Nothing is chosen.");
  for (const auto& [frame, name] : {std::pair{"<iframe title=Preview src=/in></iframe>", "Preview"},
                                    std::pair{"<iframe src=/in></iframe>", "In"}}) {
    added_.clear();
    Load(frame);
    Tab();
    ASSERT_TRUE(WaitUntil([&] { return !added_.empty(); })) << name;
    ASSERT_TRUE(added_[0]->facts);
    EXPECT_EQ(added_[0]->facts->role, "");
    ASSERT_THAT(added_[0]->facts->groups, SizeIs(1));
    EXPECT_EQ(added_[0]->facts->groups[0].role, "frame");
    EXPECT_EQ(added_[0]->facts->groups[0].name, name);
  }
}

TEST_F(LateElementTest, AFrameWithAFieldIsToldWithThat) {
  server_.Page("/in", "<input name=q>");
  Load("<iframe title=Preview src=/in></iframe>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_THAT(added_, SizeIs(1));
}

TEST_F(LateElementTest, ALabelAnywhereInThePageBelongsToItsField) {
  Load(
      "<label for='a.1'>First</label><hr><input id='a.1' name=one><hr>"
      "<label><b>Second</b> <input name=two type=checkbox></label><hr><input id=bare name=three>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text one"));
  EXPECT_EQ(added_.at(0)->text_before_begin, "First");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement checkbox two"));
  EXPECT_EQ(added_.at(1)->text_after_end, "Second");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text three"));
  EXPECT_EQ(added_.at(2)->text_before_begin, "");
}

TEST_F(LateElementTest, ALabelThatIsReplacedGivesWayToTheNewOne) {
  Load("<p id=p><label for=a>Old</label></p><input id=a name=q><hr><input name=next>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_EQ(added_.at(0)->text_before_begin, "Old");
  view_.EvaluateInPage("document.getElementById('p').innerHTML = '<label for=a>New</label>'");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text next"));
  log_.clear();
  view_.EvaluateInPage("document.getElementById('a').focus()");
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_EQ(added_.at(0)->text_before_begin, "New");
}

TEST_F(LateElementTest, ALabelInAPartOfThePageWithItsOwnNamesIsFoundThere) {
  Load(R"(<div id=host></div><script>
      document.getElementById('host').attachShadow({mode: 'open'}).innerHTML =
          '<label for=a>Inside</label><hr><input id=a name=q>';
    </script>)");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_EQ(added_.at(0)->text_before_begin, "Inside");
}

TEST_F(LateElementTest, AFieldThatAScriptAddsIsTold) {
  Load("<form><input name=first></form>");
  view_.EvaluateInPage(
      "document.forms[0].append(Object.assign(document.createElement('input'), {name: 'new'}))");
  Tab();
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text new"));
  EXPECT_THAT(added_, SizeIs(1)) << "the first is in the page's own list";
}

TEST_F(LateElementTest, ALinkThatAScriptAddsIsTold) {
  Load("<p id=here>");
  view_.EvaluateInPage("document.getElementById('here').innerHTML = '<a href=/x>More</a>'");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLAnchorElement  More"));
  EXPECT_EQ(added_.at(0)->href, server_.Url("/x"));
}

TEST_F(LateElementTest, AFormBuiltAnewIsToldAnew) {
  Load("<div id=here><form><input name=q></form></div>");
  view_.EvaluateInPage(
      "document.getElementById('here').innerHTML = '<form><input name=q value=2></form>'");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  EXPECT_EQ(added_.at(0)->value, "2");
}

TEST_F(LateElementTest, FieldsAndLinksOfAFrameAreTold) {
  TestServer other;
  other.Page("/in", "<form><input name=inner></form><a href=/y>Inner link</a>");
  Load("<iframe src='" + other.Url("/in") + "'></iframe>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text inner"));
  Tab();
  ASSERT_TRUE(Heard("focus HTMLAnchorElement  Inner link"));
}

TEST_F(LateElementTest, OtherElementsSayTheirRoleAndName) {
  Load("<div tabindex=0 role=button aria-label=Close>x</div><div tabindex=0>Plain words</div>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLDivElement button Close"));
  Tab();
  ASSERT_TRUE(Heard("focus HTMLDivElement div Plain words"));
}

TEST_F(LateElementTest, AnEditablePartOfThePageIsATextArea) {
  Load("<div contenteditable aria-label=Note>old</div>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLTextAreaElement textarea Note"));
  EXPECT_EQ(added_.at(0)->value, "old");
  view_.Key(GDK_KEY_End);
  view_.Key(GDK_KEY_x);
  ASSERT_TRUE(WaitUntil([&] { return added_.at(0)->value == "oldx"; }));
  EXPECT_EQ(added_.at(0)->caret.text_after, 0);
  view_.Key(GDK_KEY_Home);
  ASSERT_TRUE(WaitUntil([&] { return added_.at(0)->caret.text_after == 4; }));
}

TEST_F(LateElementTest, OutputsAndOwnElementsAreNoFormElements) {
  Load("<form><output name=o></output><input name=q><fieldset></fieldset></form>");
  const auto& elements = view_.Document()->forms.at(0).elements;
  ASSERT_THAT(elements, SizeIs(2));
  EXPECT_EQ(elements[0]->type_name, "HTMLInputElement");
  EXPECT_EQ(elements[1]->type_name, "HTMLFieldSetElement");
}

TEST_F(LateElementTest, AFocusThatAPageMovesInALoopIsToldNowAndAgain) {
  Load("<p id=here>Fields: ");
  view_.RunInPage(R"(
      let i = 0;
      const move = () => {
        const field = document.createElement('input');
        field.name = 'f' + i;
        document.getElementById('here').append(field);
        field.focus();
        if (++i < 400) setTimeout(move, 1);
        else document.title = 'over';
      };
      move();
  )");
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "over"; }));
  ASSERT_TRUE(Heard("focus HTMLInputElement text f399")) << "the last one is told";
  EXPECT_LT(log_.size(), 20U);
}

TEST_F(LateElementTest, AStateOfWhatHasTheFocusIsToldAsItChanges) {
  Load("<details><summary>More</summary>Text</details>");
  Tab();
  ASSERT_TRUE(WaitUntil([&] { return !added_.empty() && added_.at(0)->facts != nullptr; }));
  EXPECT_EQ(added_.at(0)->facts->expanded, Tri::No);
  view_.Key(GDK_KEY_Return);
  ASSERT_TRUE(WaitUntil([&] { return added_.at(0)->facts->expanded == Tri::Yes; }));
  EXPECT_EQ(added_.at(0)->facts_before->expanded, Tri::No);
}

TEST_F(LateElementTest, AMoveWithinAWidgetIsAFocusLikeAnyOther) {
  Load(R"(<div role=listbox tabindex=0 aria-activedescendant=a><div role=option id=a>One</div>
      <div role=option id=b>Two</div></div><script>
      document.querySelector('[role=listbox]').onkeydown = ({key, currentTarget: list}) => {
        if (key === 'ArrowDown') list.setAttribute('aria-activedescendant', 'b');
        if (key === 'Escape') list.removeAttribute('aria-activedescendant');
      };</script>)");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLDivElement option One"));
  view_.Key(GDK_KEY_Down);
  ASSERT_TRUE(Heard("focus HTMLDivElement option Two"));
  view_.Key(GDK_KEY_Escape);
  ASSERT_TRUE(WaitUntil([&] { return log_.back().starts_with("focus HTMLDivElement listbox"); }));
}

TEST_F(LateElementTest, WhatHadTheFocusBeforeAnybodyListenedIsToldWhenItHasItAgain) {
  Load("<div tabindex=0 role=button>One</div><input name=q>");
  connections_.Clear();
  Tab();
  view_.EvaluateInPage("1");
  connections_ += view_.Document()->onelementadded.Connect([this](const HTMLElementPtr& element) {
    connections_ += element->onfocus.Connect([this, element] { Log("focus", *element); });
  });
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  view_.Key(GDK_KEY_Tab, GDK_SHIFT_MASK);
  EXPECT_TRUE(Heard("focus HTMLDivElement button One"));
}

TEST_F(LateElementTest, AnEditorHasALineForEachOfItsParts) {
  Load("<div contenteditable aria-label=Note><p>Hello</p><ul><li>one <b>two</b></li></ul></div>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLTextAreaElement textarea Note"));
  EXPECT_EQ(added_.at(0)->value, "Hello\none two");
  EXPECT_EQ(added_.at(0)->caret.line, "Hello");
  view_.Key(GDK_KEY_Down);
  ASSERT_TRUE(WaitUntil([&] { return added_.at(0)->caret.line == "one two"; }));
  EXPECT_EQ(added_.at(0)->caret.step, ElementCaret::Step::Line);
}

TEST_F(LateElementTest, APageKnowsTheTabThatGoesBack) {
  Load(
      "<input name=q><script>onkeydown = ({key, shiftKey}) => { document.title = key + "
      "shiftKey }</script>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  view_.Key(GDK_KEY_ISO_Left_Tab, GDK_SHIFT_MASK);
  EXPECT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.title") == "Tabtrue"; }));
}

TEST_F(LateElementTest, AFieldThatVanishesWhileFocusedIsNoTrouble) {
  Load("<input name=q><input name=next>");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text q"));
  view_.EvaluateInPage("document.querySelector('[name=q]').remove()");
  view_.Key(GDK_KEY_a);
  Tab();
  ASSERT_TRUE(Heard("focus HTMLInputElement text next"));
}

TEST_F(LateElementTest, AValueOfAMegabyteIsToldWhole) {
  Load("<textarea name=t></textarea>");
  view_.EvaluateInPage("document.querySelector('textarea').value = 'x'.repeat(1024 * 1024)");
  Tab();
  ASSERT_TRUE(Heard("focus HTMLTextAreaElement textarea t"));
  EXPECT_EQ(added_.at(0)->value.size(), 1024U * 1024U);
}

}  // namespace
}  // namespace corvane::desktop
