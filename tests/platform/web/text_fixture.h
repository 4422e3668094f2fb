#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {

/// A page in the real engine, and its text with its elements.
class TextTest : public PageTest {
 protected:
  void Load(const std::string& content) {
    server_.Page("/", "<!doctype html><title>A</title>" + content);
    view_.Go(server_.Url());
    Read();
  }
  void Read() {
    std::optional<PageTextPtr> answer;
    const Connection asking = view_->DescribeText([&](const PageTextPtr& text) { answer = text; });
    ASSERT_TRUE(WaitUntil([&] { return answer.has_value(); }));
    page_ = *answer;
    ASSERT_TRUE(page_) << "no text";
  }
  std::string Words(const PageSpan& span) const {
    return text::mid(page_->text, static_cast<std::size_t>(span.start) + 1,
                     static_cast<std::size_t>(span.length));
  }
  std::vector<std::string> All(PageSpan::Kind kind) const {
    std::vector<std::string> found;
    for (const PageSpan& span : page_->spans) {
      if (span.kind == kind) found.push_back(Words(span));
    }
    return found;
  }
  const PageSpan& First(PageSpan::Kind kind) const {
    const auto& spans = page_->spans;
    const auto found = std::find_if(spans.begin(), spans.end(),
                                    [&](const PageSpan& span) { return span.kind == kind; });
    static const PageSpan kNone;
    EXPECT_NE(found, spans.end());
    return found == spans.end() ? kNone : *found;
  }

  PageElement The(PageSpan::Kind kind) const { return page_->ElementOf(First(kind)); }
  void Use(PageSpan::Kind kind, WebBrowser::ElementUse use = WebBrowser::ElementUse::Use) {
    view_->UseElement(The(kind), use);
  }
  std::string InPage(const std::string& script) { return view_.EvaluateInPage(script); }
  bool Becomes(const std::string& script, const std::string& value) {
    return WaitUntil([&] { return InPage("String(" + script + ")") == value; });
  }
  /// Presses Escape in the element with that id and waits until that has been dealt with.
  void PressEscapeIn(const std::string& id) {
    view_.Focus();
    InPage("document.getElementById('" + id + "').focus()");
    InPage(
        "window.released = 0; addEventListener('keyup', () => setTimeout(() => released++, 50), "
        "{once: true})");
    view_.Key(GDK_KEY_Escape);
    ASSERT_TRUE(Becomes("released", "1"));
  }

  PageTextPtr page_;
};

}  // namespace corvane::desktop
