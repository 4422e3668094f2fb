// The text of pages whose parts come from other pages, also of other origins, against
// the real engine.
#include <gmock/gmock.h>

#include <string>

#include "tests/platform/web/text_fixture.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using Kind = PageSpan::Kind;

class TextFrameTest : public TextTest {
 protected:
  /// A frame's element with a page of the other origin in it.
  std::string Foreign(const std::string& path, const std::string& attributes = "") const {
    return "<iframe " + attributes + " src='" + other_.Url(path) + "'></iframe>";
  }

  TestServer other_;  // another port is another origin
};

TEST_F(TextFrameTest, FramesStandWhereTheyAre) {
  server_.Page("/inner", "<!doctype html><h2>Inside</h2><a href=/q>go</a>");
  Load("<p>before<iframe src=/inner title=Advert></iframe>after");
  EXPECT_EQ(page_->text, "before\nInside\n\ngo\nafter");
  EXPECT_THAT(All(Kind::Frame), ElementsAre("Inside\n\ngo"));
  EXPECT_EQ(First(Kind::Frame).facts->name, "Advert");
  EXPECT_EQ(page_->documents.size(), 2U);
  EXPECT_EQ(First(Kind::Heading).document, 1);
}

TEST_F(TextFrameTest, AFrameOfAnotherOriginIsReadLikeAnyOther) {
  other_.Page("/ad", "<!doctype html><h2>Offers</h2><a href=/q>go</a>");
  Load("<p>before" + Foreign("/ad", "title=Advert") + "after");
  EXPECT_EQ(page_->text, "before\nOffers\n\ngo\nafter");
  EXPECT_THAT(All(Kind::Frame), ElementsAre("Offers\n\ngo"));
  EXPECT_EQ(First(Kind::Frame).facts->name, "Advert");
  EXPECT_EQ(First(Kind::Heading).document, 1);
}

TEST_F(TextFrameTest, FramesInFramesAcrossOrigins) {
  server_.Page("/deep", "<!doctype html><p>deep");
  other_.Page("/middle",
              "<!doctype html><p>middle<iframe src='" + server_.Url("/deep") + "'></iframe>");
  Load("<p>outer" + Foreign("/middle"));
  EXPECT_EQ(page_->text, "outer\nmiddle\ndeep");
  EXPECT_THAT(page_->documents, SizeIs(3));
}

TEST_F(TextFrameTest, ASandboxedFrameWithScripts) {
  other_.Page("/in", "<!doctype html><p>inside");
  Load("<p>outer" + Foreign("/in", "sandbox=allow-scripts"));
  EXPECT_EQ(page_->text, "outer\ninside");
}

TEST_F(TextFrameTest, AFrameThatRunsNoScriptsHasItsName) {
  other_.Page("/in", "<!doctype html><p>inside");
  Load("<p>outer" + Foreign("/in", "sandbox title=Map"));
  EXPECT_EQ(page_->text, "outer\nMap");
}

TEST_F(TextFrameTest, EscapeOutOfAFrameWithNothingInItLeadsToTheFrame) {
  other_.Page("/empty", "<!doctype html><body></body>");
  Load("<p>before" + Foreign("/empty", "title=Form") + "after");
  view_.Focus();
  Use(Kind::Frame, WebBrowser::ElementUse::Enter);
  ASSERT_TRUE(Becomes("document.activeElement.tagName", "IFRAME"));
  view_.Key(GDK_KEY_Escape);
  ASSERT_TRUE(WaitUntil([&] { return !view_.left.empty(); }));
  EXPECT_THAT(view_.left, ElementsAre(The(Kind::Frame)));
}

TEST_F(TextFrameTest, EscapeOutOfAPageThatIsWrittenInLeadsToItsText) {
  other_.Page("/editor", "<!doctype html><body contenteditable>Dear Ada</body>");
  Load("<p>before" + Foreign("/editor", "title=Letter") + "after");
  view_.Focus();
  Use(Kind::Edit, WebBrowser::ElementUse::Enter);
  ASSERT_TRUE(Becomes("document.activeElement.tagName", "IFRAME"));
  view_.Key(GDK_KEY_Escape);
  ASSERT_TRUE(WaitUntil([&] { return !view_.left.empty(); }));
  EXPECT_THAT(view_.left, ElementsAre(The(Kind::Edit)));
}

TEST_F(TextFrameTest, OfAFrameThatHasMovedOnTheNewPageIsRead) {
  other_.Page("/first", "<!doctype html><p>first");
  other_.Page("/second", "<!doctype html><p>second");
  Load(Foreign("/first"));
  EXPECT_EQ(page_->text, "first");
  InPage("document.querySelector('iframe').src = '" + other_.Url("/second") + "'");
  EXPECT_TRUE(WaitUntil([&] {
    Read();
    return page_->text == "second";
  }));
  InPage(
      "const f = document.querySelector('iframe'); f.sandbox = ''; f.title = 'Quiet'; f.src += "
      "'?2'");
  EXPECT_TRUE(WaitUntil([&] {
    Read();
    return page_->text == "Quiet";
  }));
}

TEST_F(TextFrameTest, AnElementOfAFrameIsUsedThere) {
  server_.Page("/inner", "<!doctype html><button onclick='parent.pressed = 1'>Do</button>");
  Load("<iframe src=/inner></iframe>");
  Use(Kind::Button);
  EXPECT_TRUE(Becomes("window.pressed", "1"));
}

TEST_F(TextFrameTest, AnElementOfAForeignFrameIsUsedThere) {
  other_.Page("/in",
              "<!doctype html><button onclick=\"parent.postMessage('pressed', '*')\">Do</button>");
  Load(Foreign("/in") + "<script>onmessage = event => said = event.data</script>");
  Use(Kind::Button);
  EXPECT_TRUE(Becomes("window.said", "pressed"));
}

TEST_F(TextFrameTest, EnteringAFieldOfAForeignFrameGivesItTheFocus) {
  other_.Page(
      "/in", "<!doctype html><input aria-label=Card onfocus=\"parent.postMessage('focus', '*')\">");
  Load(Foreign("/in") + "<script>onmessage = event => said = event.data</script>");
  Use(Kind::Edit, WebBrowser::ElementUse::Enter);
  EXPECT_TRUE(Becomes("window.said", "focus"));
  EXPECT_TRUE(Becomes("document.activeElement.localName", "iframe"));
}

TEST_F(TextFrameTest, NoPageSeesHowFramesAreRead) {
  other_.Page("/in",
              "<!doctype html><p>in<script>parent.postMessage(typeof corvaneFrames, '*')</script>");
  Load(Foreign("/in") +
       "<script>onmessage = event => said = event.data + typeof corvaneFrames</script>");
  EXPECT_TRUE(Becomes("window.said", "undefinedundefined"));
}

}  // namespace
}  // namespace corvane::desktop
