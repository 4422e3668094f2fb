// What the accessibility bus knows of the field that has the focus in a page.
#include "tests/platform/access/access_fixture.h"

namespace corvane::desktop {
namespace {

class FocusOfAPage : public AccessTest {
 protected:
  void Show(const std::string& body) {
    server_.Page("/page.html", "<!doctype html><title>Elements</title><body>" + body);
    Go(server_.Url("/page.html"));
    FetchPage();
    gtk_window_present(GTK_WINDOW(window_));
    browser_->SetFocus();
    ASSERT_TRUE(WaitUntil([this] { return gtk_window_is_active(GTK_WINDOW(window_)); }));
  }
  void Key(guint keyval) { SendTestKey(browser_->widget().gobj(), keyval); }
  FieldFocus Look() {
    FieldFocus focus;
    bool seen = false;
    accessibility_->ReadFocus(browser_->widget().gobj(), [&](const FieldFocus& answer) {
      focus = answer;
      seen = true;
    });
    EXPECT_TRUE(WaitUntil([&] { return seen; })) << "no answer";
    return focus;
  }
  /// Looks until the focus is as wanted.
  FieldFocus LookFor(const std::function<bool(const FieldFocus&)>& wanted) {
    FieldFocus focus;
    EXPECT_TRUE(WaitUntil([&] {
      focus = Look();
      return wanted(focus);
    })) << focus.name
        << " " << focus.text << " " << focus.caret;
    return focus;
  }
};

TEST_F(FocusOfAPage, PartsOfADateHaveNamesAndValues) {
  Show("<input type=date value=2024-05-17>");
  Key(GDK_KEY_Tab);
  FieldFocus focus = LookFor([](const FieldFocus& now) { return now.is_part; });
  EXPECT_EQ(focus.name, "month");
  EXPECT_EQ(focus.text, "05");
  EXPECT_FALSE(focus.is_empty);
  Key(GDK_KEY_Right);
  focus = LookFor([](const FieldFocus& now) { return now.name == "day"; });
  EXPECT_EQ(focus.text, "17");
}

TEST_F(FocusOfAPage, PartThatHoldsNothingIsEmptyAndAnHourOfNoughtIsNot) {
  Show("<input type=date><input type=time value=00:30>");
  Key(GDK_KEY_Tab);
  EXPECT_TRUE(LookFor([](const FieldFocus& now) { return now.name == "month"; }).is_empty);
  for (int i = 0; i < 3; ++i) Key(GDK_KEY_Tab);
  EXPECT_FALSE(LookFor([](const FieldFocus& now) { return now.name == "hour"; }).is_empty);
}

TEST_F(FocusOfAPage, AnHourThatOnlyShowsWhatMightStandThereIsEmpty) {
  Show("<input type=time>");
  Key(GDK_KEY_Tab);
  EXPECT_TRUE(LookFor([](const FieldFocus& now) { return now.name == "hour"; }).is_empty);
}

TEST_F(FocusOfAPage, AMonthsNameIsNotEmptyThoughItHasNoNumber) {
  Show("<input type=month value=2024-05>");
  Key(GDK_KEY_Tab);
  const FieldFocus month = LookFor([](const FieldFocus& now) { return now.name == "month"; });
  EXPECT_EQ(month.text, "May");
  EXPECT_FALSE(month.is_empty);
}

TEST_F(FocusOfAPage, CaretAndSelectionOfANumber) {
  Show("<input type=number value=123>");
  Key(GDK_KEY_Tab);
  EXPECT_EQ(LookFor([](const FieldFocus& now) { return now.selected == 3; }).text, "123");
  Key(GDK_KEY_Home);
  EXPECT_EQ(LookFor([](const FieldFocus& now) { return now.caret == 0; }).selected, 0);
  Key(GDK_KEY_Right);
  LookFor([](const FieldFocus& now) { return now.caret == 1; });
}

TEST_F(FocusOfAPage, WithoutAFocusThereIsNothing) {
  Show("<p>Only words");
  const FieldFocus focus = Look();
  EXPECT_FALSE(focus.is_part);
  EXPECT_EQ(focus.caret, -1);
}

}  // namespace
}  // namespace corvane::desktop
