// Documents that run no scripts, against the real engine: those that are sent with a policy
// that forbids them.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/platform/web/text_fixture.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using Kind = PageSpan::Kind;

struct NoScriptTest : TextTest {
  void Load(const std::string& content) {
    server_.Page("/", "<!doctype html><title>A</title>" + content, "text/html",
                 {{"Content-Security-Policy", "sandbox"}});
    view_.Go(server_.Url());
    for (const HTMLElementPtr& link : view_.Document()->links) Listen(link);
    late_ = view_.Document()->onelementadded.Connect(
        [this](const HTMLElementPtr& element) { Listen(element); });
  }
  void Listen(const HTMLElementPtr& element) {
    listening_ += element->onfocus.Connect(
        [this, &element = *element] { focused_.push_back(element.innerText + element.label); });
  }
  void TabTo(const std::string& words) {
    view_.Key(GDK_KEY_Tab);
    EXPECT_TRUE(WaitUntil([&] { return !focused_.empty() && focused_.back() == words; })) << words;
  }

  std::vector<std::string> focused_;
  Connection late_;
  Connections listening_;
};

TEST_F(NoScriptTest, TheTextStandsThereWithItsElements) {
  Load("<h1>Head</h1><p><a href=/x>go</a> <button>Do</button>");
  Read();
  EXPECT_EQ(page_->text, "Head\n\ngo Do");
  EXPECT_THAT(All(Kind::Heading), ElementsAre("Head"));
  EXPECT_THAT(All(Kind::Link), ElementsAre("go"));
  EXPECT_THAT(All(Kind::Button), ElementsAre("Do"));
}

TEST_F(NoScriptTest, PlainTextStandsThereToo) {
  server_.Page("/", "one\ntwo\n", "text/plain",
               {{"Content-Security-Policy", "default-src 'none'; sandbox"}});
  view_.Go(server_.Url());
  Read();
  EXPECT_EQ(page_->text, "one\ntwo\n");
}

TEST_F(NoScriptTest, WhatTheFocusComesToIsTold) {
  Load("<a href=/x>one</a> <a href=/y>two</a> <button aria-label=three></button>");
  view_.Focus();
  TabTo("one");
  TabTo("two");
  TabTo("three");
  EXPECT_EQ(focused_.size(), 3U) << "each once";
}

TEST_F(NoScriptTest, ALinkInTheTextIsFollowed) {
  server_.Page("/x", "<title>There</title>");
  Load("<p><a href=/x>go</a>");
  Read();
  Use(Kind::Link);
  EXPECT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/x"); }));
}

TEST_F(NoScriptTest, AnElementInTheTextGetsTheFocus) {
  Load("<p><a href=/x>go</a> <input aria-label=Name>");
  Read();
  Use(Kind::Edit, WebBrowser::ElementUse::Enter);
  EXPECT_TRUE(WaitUntil([&] { return !focused_.empty() && focused_.back() == "Name"; }));
}

}  // namespace
}  // namespace corvane::desktop
