// How a page's text follows the page, against the real engine.
#include <gmock/gmock.h>

#include <string>

#include "tests/platform/web/text_fixture.h"

namespace corvane::desktop {
namespace {

using testing::HasSubstr;
using Kind = PageSpan::Kind;

struct TextChangeTest : TextTest {
  bool IsTold() {
    return WaitUntil([&] { return view_.text_changes > 0; });
  }
  /// Waits until the change has been told, and takes the text anew.
  void Changed() {
    ASSERT_TRUE(IsTold());
    view_.text_changes = 0;
    Read();
  }
};

TEST_F(TextChangeTest, WhatComesLongAfterAUseIsTold) {
  Load(
      "<button onclick=\"setTimeout(() => out.textContent = 'Late', 2500)\">Do</button><p id=out>");
  Use(Kind::Button);
  Changed();  // it may have checked itself
  EXPECT_THAT(page_->text, testing::Not(HasSubstr("Late")));
  Changed();
  EXPECT_THAT(page_->text, HasSubstr("Late"));
}

TEST_F(TextChangeTest, WhatThePageDoesByItselfIsToldOnce) {
  Load("<p id=out>1</p>");
  InPage("setInterval(() => { out.textContent = Number(out.textContent) + 1; }, 20)");
  ASSERT_TRUE(IsTold());
  ASSERT_TRUE(Becomes("Number(out.textContent) > 100", "true"));
  EXPECT_EQ(view_.text_changes, 1) << "until somebody has taken the text";
  Changed();
  ASSERT_TRUE(IsTold());
}

TEST_F(TextChangeTest, WhatChangesInAShadowTreeIsTold) {
  Load("<div id=host></div>");
  InPage("host.attachShadow({mode: 'open'}).innerHTML = '<p>Old</p>'; host.title = 'x'");
  InPage("document.body.append('more')");
  Changed();
  EXPECT_THAT(page_->text, HasSubstr("Old"));
  InPage("host.shadowRoot.querySelector('p').textContent = 'New'");
  Changed();
  EXPECT_THAT(page_->text, HasSubstr("New"));
}

TEST_F(TextChangeTest, WhatIsShownByAClassAfterAUseIsTold) {
  Load(
      "<style>.off {display: none}</style><button onclick=\"setTimeout(() => out.className = '', "
      "1500)\">Do</button><p id=out class=off>Words");
  Use(Kind::Button);
  Changed();
  EXPECT_THAT(page_->text, testing::Not(HasSubstr("Words")));
  Changed();
  EXPECT_THAT(page_->text, HasSubstr("Words"));
}

TEST_F(TextChangeTest, AnotherPageInAFrameIsTold) {
  server_.Page("/one", "<!doctype html><p>First");
  server_.Page("/two", "<!doctype html><p>Second");
  Load("<iframe id=f src=/one></iframe>");
  EXPECT_THAT(page_->text, HasSubstr("First"));
  view_.text_changes = 0;
  InPage("f.contentWindow.location = '/two'");
  Changed();
  EXPECT_THAT(page_->text, HasSubstr("Second"));
}

TEST_F(TextChangeTest, WhereThePageLeadsItsFocusIsTold) {
  Load("<button onclick=\"yes.hidden = false; yes.focus()\">Do</button><button id=yes hidden>Yes");
  view_.Focus();
  Use(Kind::Button);
  ASSERT_TRUE(WaitUntil([&] { return !view_.focused.empty(); }));
  Read();
  EXPECT_EQ(page_->ElementOf(page_->spans.back()), view_.focused.back());
}

}  // namespace
}  // namespace corvane::desktop
