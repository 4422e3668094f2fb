// A page described again after it was read, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::SizeIs;

class DescriptionTest : public PageTest {
 protected:
  HTMLDocumentPtr Described() {
    HTMLDocumentPtr described;
    const auto describing =
        view_->Describe([&](const HTMLDocumentPtr& document) { described = document; });
    EXPECT_TRUE(WaitUntil([&] { return described != nullptr; }));
    return described;
  }
  TestServer other_;  // another port is another origin
};

TEST_F(DescriptionTest, PageThatHasChangedItselfIsDescribedAsItIsNow) {
  server_.Page("/", "<title>A</title><div id=d><a href=/x>x</a></div>");
  view_.Go(server_.Url());
  view_.RunInPage(
      "document.title = 'B';"
      "document.getElementById('d').innerHTML = '<a href=/y>y</a><form><input name=q></form>'");
  const auto before = view_.Document();
  const auto now = Described();
  EXPECT_EQ(now->Title, "B");
  ASSERT_THAT(now->links, SizeIs(1));
  EXPECT_EQ(now->links[0]->href, server_.Url("/y"));
  EXPECT_THAT(now->forms, SizeIs(1));
  EXPECT_EQ(view_.Document(), before) << "the document whose elements are listened to stays";
  EXPECT_EQ(before->links.at(0)->innerText, "x");
}

TEST_F(DescriptionTest, ElementsGoOnRaisingTheirEventsAndNewOnesAreTold) {
  server_.Page("/", "<title>A</title><form><input name=old></form>");
  view_.Go(server_.Url());
  std::vector<std::string> heard;
  Connections listening;
  listening += view_.Document()->forms.at(0).elements.at(0)->onfocus.Connect(
      [&] { heard.push_back("old"); });
  listening += view_.Document()->onelementadded.Connect(
      [&](const HTMLElementPtr& element) { heard.push_back("added " + element->name); });
  view_.RunInPage(
      "document.forms[0].append(Object.assign(document.createElement('input'), {name: 'new'}))");
  EXPECT_THAT(Described()->forms.at(0).elements, SizeIs(2));
  view_.Focus();
  view_.Key(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return heard == std::vector<std::string>{"old"}; }));
  view_.Key(GDK_KEY_Tab);
  ASSERT_TRUE(WaitUntil([&] { return heard == std::vector<std::string>{"old", "added new"}; }));
}

TEST_F(DescriptionTest, FrameOfAnotherOriginKeepsItsPlaceAndContents) {
  other_.Page("/in", "<title>Foreign</title><a href=/z>z</a>");
  server_.Page("/near", "<title>Near</title>");
  server_.Page("/", "<title>Out</title><iframe src='" + other_.Url("/in") +
                        "'></iframe><iframe src=/near></iframe>");
  view_.Go(server_.Url());
  view_.RunInPage("frames[1].document.title = 'Changed'");
  const auto now = Described();
  ASSERT_THAT(now->frames, SizeIs(2));
  EXPECT_EQ(now->frames[0]->Title, "Foreign");
  EXPECT_THAT(now->frames[0]->links, SizeIs(1));
  EXPECT_EQ(now->frames[1]->Title, "Changed");
}

TEST_F(DescriptionTest, PageThatRunsNoScriptsIsDescribedToo) {
  server_.Page("/", "<title>A</title><a href=/x>x</a>", "text/html",
               {{"Content-Security-Policy", "sandbox"}});
  view_.Go(server_.Url());
  const auto now = Described();
  EXPECT_EQ(now->Title, "A");
  ASSERT_THAT(now->links, SizeIs(1));
  EXPECT_EQ(now->links[0]->href, server_.Url("/x"));
}

TEST_F(DescriptionTest, PageThatIsLeftIsNotDescribedAnyMore) {
  server_.Page("/", "<title>A</title>");
  server_.Page("/next", "<title>B</title>");
  view_.Go(server_.Url());
  bool called = false;
  const auto describing = view_->Describe([&](const HTMLDocumentPtr&) { called = true; });
  view_.Go(server_.Url("/next"));
  EXPECT_FALSE(called);
  {
    const auto given_up = view_->Describe([&](const HTMLDocumentPtr&) { called = true; });
  }
  EXPECT_EQ(Described()->Title, "B");
  EXPECT_FALSE(called);
}

}  // namespace
}  // namespace corvane::desktop
