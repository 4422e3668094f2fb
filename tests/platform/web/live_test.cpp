// What pages say by themselves, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LiveTest : public PageTest {
 protected:
  void Load(const std::string& content) {
    server_.Page("/", "<!doctype html><title>A</title>" + content);
    view_.Go(server_.Url());
    // The page's load has been over for a while before anything in it changes.
    view_.EvaluateInPage("1");
  }
  /// Runs a script in the page, then waits until a mark that it makes last is heard.
  std::vector<std::string> After(const std::string& script) {
    view_.page_words.clear();
    view_.RunInPage(script);
    ++mark_;
    const std::string mark = "mark " + std::to_string(mark_);
    view_.RunInPage(
        "setTimeout(() => { const p = document.createElement('p'); p.setAttribute('role', 'log');"
        "p.textContent = '" +
        mark + "'; document.body.append(p); }, 700)");
    const auto heard = [&] {
      return !view_.page_words.empty() && view_.page_words.back().words == mark;
    };
    EXPECT_TRUE(WaitUntil(heard)) << "the mark was never heard";
    std::vector<std::string> words;
    for (const auto& each : view_.page_words) words.push_back(Written(each));
    if (!words.empty()) words.pop_back();
    return words;
  }
  static std::string Written(const PageWords& each) {
    if (each.more > 0) return "and more";
    if (!each.dialog.empty()) return each.dialog + " <" + each.name + "> " + each.words;
    return (each.urgent ? "! " : "") + each.words;
  }

 private:
  int mark_ = 0;
};

TEST_F(LiveTest, PoliteAndAssertiveWordsAreToldApart) {
  Load(
      "<div id=a aria-live=polite></div><div id=b aria-live=assertive></div><div id=c role=alert>"
      "</div><div id=d role=status></div><div id=e role=timer></div><output id=f></output>"
      "<div id=g aria-live=off></div><div id=h></div>");
  EXPECT_THAT(After("for (const id of 'abcdefgh') document.getElementById(id).textContent = id"),
              ElementsAre("a", "! b", "! c", "d", "f"));
}

TEST_F(LiveTest, WhatStandsThereWhenThePageComesIsNotNews) {
  Load("<div id=a role=alert>old</div>");
  EXPECT_THAT(After("document.getElementById('a').append(' and new')"),
              ElementsAre("! old and new"));
  EXPECT_THAT(After("document.body.append('elsewhere')"), IsEmpty());
}

TEST_F(LiveTest, OnlyWhatIsAddedIsTold) {
  Load("<ul id=log role=log><li>one</ul>");
  EXPECT_THAT(
      After("const li = document.createElement('li'); li.innerHTML = 'two <img src=\"\" alt=cats>"
            "<b hidden>no</b>'; log.append(li)"),
      ElementsAre("two cats"));
}

TEST_F(LiveTest, WhatIsSaidHasTheLanguageOfWhereItStands) {
  Load(
      "<div lang=de><ul id=log role=log></ul><p id=s role=status></p></div><p id=o "
      "role=status></p>");
  const auto languages = [&](const std::string& script) {
    After(script);
    std::vector<std::string> all;
    for (const auto& each : view_.page_words) all.push_back(each.words + " " + each.language);
    all.pop_back();
    return all;
  };
  EXPECT_THAT(languages("s.textContent = 'da'; o.textContent = 'there'"),
              ElementsAre("da de", "there "));
  EXPECT_THAT(languages("log.innerHTML = '<li lang=FR-ca>ici'"), ElementsAre("ici fr-ca"));
}

TEST_F(LiveTest, AnAtomicPartIsToldWhole) {
  Load(
      "<div aria-live=polite aria-atomic=true>Basket: <b id=n>1</b> of 5</div>"
      "<div aria-live=polite>Plain <b id=p>1</b></div>");
  EXPECT_THAT(After("n.textContent = 2"), ElementsAre("Basket: 2 of 5"));
  EXPECT_THAT(After("p.firstChild.data = 7"), ElementsAre("7"));
}

TEST_F(LiveTest, RelevantSaysWhatIsHeard) {
  Load(
      "<div id=a aria-live=polite aria-relevant=removals><p>gone</p></div>"
      "<div id=b aria-live=polite aria-relevant=text><p>x</p></div>");
  EXPECT_THAT(After("a.innerHTML = ''; a.append('added')"), ElementsAre("gone removed"));
  EXPECT_THAT(After("b.firstChild.firstChild.data = 'changed'"), ElementsAre("changed"));
}

TEST_F(LiveTest, ABusyRegionIsToldWhenItIsDone) {
  Load("<div id=a aria-live=polite></div>");
  EXPECT_THAT(After("a.setAttribute('aria-busy', 'true'); a.textContent = 'half'"), IsEmpty());
  EXPECT_THAT(After("a.textContent = 'whole'; a.removeAttribute('aria-busy')"),
              ElementsAre("whole"));
}

TEST_F(LiveTest, ARegionThatAppearsWithItsTextIsTold) {
  Load(
      "<div id=a role=alert style='display:none'>Wrong password</div><div id=b hidden>"
      "<p role=status>Saved</p></div>");
  EXPECT_THAT(After("a.style.display = 'block'"), ElementsAre("! Wrong password"));
  EXPECT_THAT(After("b.hidden = false"), ElementsAre("Saved"));
  EXPECT_THAT(
      After("const p = document.createElement('div'); p.innerHTML = '<p role=alert>Made</p>';"
            "document.body.append(p)"),
      ElementsAre("! Made"));
  EXPECT_THAT(After("a.style.display = 'none'; b.className = 'x'"), IsEmpty());
}

TEST_F(LiveTest, APartThatIsShownOnlyNowIsTold) {
  Load(
      "<div id=r aria-live=polite><p>One</p><div id=two role=group aria-label='2 of 3' hidden>"
      "Plums</div></div>");
  EXPECT_THAT(After("two.hidden = false"), ElementsAre("2 of 3 Plums"));
  EXPECT_THAT(After("two.className = 'wide'"), IsEmpty());
}

TEST_F(LiveTest, ProgressIsToldInTenths) {
  Load(
      "<progress id=a max=100 value=0></progress><div id=b role=progressbar aria-label=Upload "
      "aria-valuenow=0></div>");
  EXPECT_THAT(After("a.value = 5"), IsEmpty());
  EXPECT_THAT(After("a.value = 12"), ElementsAre("12 percent"));
  EXPECT_THAT(After("a.value = 19"), IsEmpty());
  EXPECT_THAT(After("a.value = 20"), ElementsAre("20 percent"));
  EXPECT_THAT(After("b.setAttribute('aria-valuenow', 50)"), ElementsAre("Upload, 50 percent"));
}

TEST_F(LiveTest, WhatIsTypedIsNoNews) {
  Load("<div aria-live=polite><div id=a contenteditable>x</div></div>");
  EXPECT_THAT(After("a.textContent = 'typed'"), IsEmpty());
}

TEST_F(LiveTest, ShadowTreesAreHeard) {
  Load(
      "<div id=host></div><script>host.attachShadow({mode: 'open'}).innerHTML = '<p "
      "role=status></p>'"
      "</script>");
  EXPECT_THAT(After("host.shadowRoot.firstChild.textContent = 'from within'"),
              ElementsAre("from within"));
}

TEST_F(LiveTest, ADialogThatDoesNotTakeTheFocusIsToldOnce) {
  Load(
      "<div id=a role=dialog aria-label=Cookies hidden><p>We use "
      "cookies.</p><button>OK</button></div>");
  EXPECT_THAT(After("a.hidden = false"), ElementsAre("dialog <Cookies> We use cookies. OK"));
  EXPECT_THAT(After("a.className = 'x'"), IsEmpty());
}

TEST_F(LiveTest, ADialogThatTakesTheFocusTellsByIt) {
  Load("<div id=a role=dialog aria-label=Cookies hidden><button id=b>OK</button></div>");
  view_.Focus();
  EXPECT_THAT(After("a.hidden = false; b.focus()"), IsEmpty());
}

TEST_F(LiveTest, AFloodEndsInANumber) {
  Load("<div id=a role=log></div>");
  view_.RunInPage(
      "for (let i = 0; i < 40; i++) setTimeout(() => { const p = document.createElement('p'); "
      "p.textContent = 'line ' + i; a.append(p); }, i * 60)");
  const auto counted = [&] { return view_.page_words.empty() ? 0 : view_.page_words.back().more; };
  ASSERT_TRUE(WaitUntil([&] { return counted() > 0; })) << "nothing was left out";
  EXPECT_LE(view_.page_words.size(), 11U);
}

TEST_F(LiveTest, TheUserIsLedIntoADialogThatHasNotTakenTheFocus) {
  Load("<button id=a>A</button><div id=d></div>");
  EXPECT_FALSE(view_->EnterDialog([] {}));
  const auto open =
      "d.innerHTML = '<div role=dialog aria-label=Cookies><p>Yes?</p><button id=b>B</button>"
      "</div>'";
  EXPECT_THAT(After(open), ElementsAre("dialog <Cookies> Yes? B"));
  bool gone = false;
  EXPECT_TRUE(view_->EnterDialog([&] { gone = true; }));
  EXPECT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.activeElement.id") == "b"; }));
  EXPECT_FALSE(view_->EnterDialog([] {})) << "once";
  EXPECT_FALSE(gone);

  After("d.innerHTML = ''; a.focus(); setTimeout(() => {" + std::string(open) + "}, 100)");
  view_.EvaluateInPage("d.innerHTML = ''");
  EXPECT_TRUE(view_->EnterDialog([&] { gone = true; }));
  EXPECT_TRUE(WaitUntil([&] { return gone; })) << "it has closed";
}

}  // namespace
}  // namespace corvane::desktop
