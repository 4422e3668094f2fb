// Frames of the same and of other origins, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::SizeIs;

class FrameTest : public PageTest {
 protected:
  TestServer other_;  // another port is another origin
};

TEST_F(FrameTest, FrameOfTheSameOrigin) {
  server_.Page("/in", "<title>In</title>inner <a href=/x>link</a>");
  server_.Page("/", "<title>Out</title><iframe src=/in></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  const auto& frame = *view_.Document()->frames[0];
  EXPECT_EQ(frame.Title, "In");
  EXPECT_EQ(frame.location, server_.Url("/in"));
  EXPECT_EQ(frame.body_innerText, "inner link");
  EXPECT_THAT(frame.links, SizeIs(1));
}

TEST_F(FrameTest, FrameOfAnotherOrigin) {
  other_.Page("/in", "<title>Foreign</title><form><input name=q></form>");
  server_.Page("/", "<title>Out</title><iframe src='" + other_.Url("/in") + "'></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->Title, "Foreign");
  ASSERT_THAT(view_.Document()->frames[0]->forms, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->forms[0].elements.at(0)->name, "q");
}

TEST_F(FrameTest, FramesKeepTheirPlaces) {
  server_.Page("/a", "<title>A</title>");
  server_.Page("/c", "<title>C</title>");
  other_.Page("/b", "<title>B</title>");
  server_.Page("/", "<iframe src=/a></iframe><iframe src='" + other_.Url("/b") +
                        "'></iframe><iframe src=/c></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(3));
  EXPECT_EQ(view_.Document()->frames[0]->Title, "A");
  EXPECT_EQ(view_.Document()->frames[1]->Title, "B");
  EXPECT_EQ(view_.Document()->frames[2]->Title, "C");
}

TEST_F(FrameTest, FramesInFramesAcrossOrigins) {
  server_.Page("/deep", "<title>Deep</title>");
  other_.Page("/middle",
              "<title>Middle</title><iframe src='" + server_.Url("/deep") + "'></iframe>");
  server_.Page("/", "<title>Out</title><iframe src='" + other_.Url("/middle") + "'></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  const auto& middle = *view_.Document()->frames[0];
  EXPECT_EQ(middle.Title, "Middle");
  ASSERT_THAT(middle.frames, SizeIs(1));
  EXPECT_EQ(middle.frames[0]->Title, "Deep");
}

TEST_F(FrameTest, AFrameWithoutScriptsIsKnownByItsElement) {
  server_.Page("/in", "<title>In</title>");
  server_.Page("/", "<iframe sandbox src=/in title='A map'></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->nameProp, "A map");
  EXPECT_EQ(view_.Document()->frames[0]->location, server_.Url("/in"));
}

TEST_F(FrameTest, ASandboxedFrameWithScripts) {
  server_.Page("/in", "<title>In</title>");
  server_.Page("/", "<iframe sandbox='allow-scripts' src=/in></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->Title, "In");
}

TEST_F(FrameTest, AFrameWhoseDocumentForbidsScriptsHoldsNothingUp) {
  other_.Page("/in", "<title>In</title>", "text/html", {{"Content-Security-Policy", "sandbox"}});
  server_.Page("/", "<iframe src='" + other_.Url("/in") + "' title='Locked'></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->nameProp, "Locked");
}

TEST_F(FrameTest, AFrameThatGoesElsewhereIsReadAnew) {
  server_.Page("/one", "<title>One</title>");
  server_.Page("/two", "<title>Two</title>");
  server_.Page("/", "<iframe src=/one></iframe>");
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->Title, "One");
  view_.RunInPage("frames[0].location = '/two'");
  EXPECT_TRUE(WaitUntil([&] { return view_.Document()->frames[0]->Title == "Two"; }));
}

TEST_F(FrameTest, FramesAreReadAgainAfterGoingBack) {
  other_.Page("/in", "<title>Foreign</title>");
  server_.Page("/", "<title>Out</title><iframe src='" + other_.Url("/in") + "'></iframe>");
  server_.Page("/b", "<title>B</title>");
  view_.Go(server_.Url());
  view_.Go(server_.Url("/b"));
  view_->GoBack();
  view_.WaitIdle();
  EXPECT_EQ(view_.Document()->Title, "Out");
  ASSERT_THAT(view_.Document()->frames, SizeIs(1));
  EXPECT_EQ(view_.Document()->frames[0]->Title, "Foreign");
}

TEST_F(FrameTest, ManyFrames) {
  server_.Page("/in", "<title>In</title>");
  std::string page;
  for (int i = 0; i < 100; ++i) page += "<iframe src='/in?" + std::to_string(i) + "'></iframe>";
  server_.Page("/", page);
  view_.Go(server_.Url());
  ASSERT_THAT(view_.Document()->frames, SizeIs(100));
  EXPECT_EQ(view_.Document()->frames[99]->location, server_.Url("/in?99"));
}

}  // namespace
}  // namespace corvane::desktop
