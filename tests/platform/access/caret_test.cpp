// The caret: in a page, which only the page knows, and in the window's own controls.
#include "tests/platform/access/access_fixture.h"

namespace corvane::desktop {
namespace {

class PageCaret : public AccessTest {
 protected:
  void Show(const std::string& body) {
    server_.Page("/page.html",
                 "<!doctype html><title>Elements</title><style>*{margin:0}"
                 "#f{position:absolute;left:100px;top:60px;width:300px;"
                 "font:20px monospace}</style><body>" +
                     body);
    Go(server_.Url("/page.html"));
    page_ = FetchPage();
    gtk_window_present(GTK_WINDOW(window_));
    browser_->SetFocus();
    ASSERT_TRUE(WaitUntil([this] { return gtk_window_is_active(GTK_WINDOW(window_)); }));
  }
  void Run(const std::string& script) {
    bool done = false;
    webkit_web_view_evaluate_javascript(
        WEBKIT_WEB_VIEW(browser_->widget().gobj()), script.c_str(), -1, nullptr, nullptr, nullptr,
        +[](GObject*, GAsyncResult*, gpointer flag) { *static_cast<bool*>(flag) = true; }, &done);
    ASSERT_TRUE(WaitUntil([&] { return done; }));
  }
  /// The caret's place when it is to the right of `x`.
  ScreenPoint CaretBeyond(int x) {
    ScreenPoint caret;
    EXPECT_TRUE(WaitUntil([&] {
      caret = accessibility_->CaretPos();
      return caret.x > x;
    })) << caret.x;
    return caret;
  }

  AccessiblePtr page_;
};

TEST_F(PageCaret, IsWhereItStandsInTheFieldThatHasTheFocus) {
  Show("<input id=f value=abcdef aria-label=Field>");
  Run("document.getElementById('f').focus();document.getElementById('f').setSelectionRange(0, 0)");
  const ScreenPoint begin = CaretBeyond(99);
  EXPECT_LT(begin.x, 115) << "the field's beginning, in pixels of the view";
  EXPECT_GE(begin.y, 60);
  EXPECT_LT(begin.y, 100);
  Run("document.getElementById('f').setSelectionRange(3, 3)");
  const ScreenPoint third = CaretBeyond(begin.x);
  EXPECT_EQ(third.y, begin.y);
  Run("document.getElementById('f').setSelectionRange(6, 6)");
  const ScreenPoint end = CaretBeyond(third.x);
  EXPECT_NEAR(end.x - third.x, third.x - begin.x, 2) << "three letters of one width each time";
}

TEST_F(PageCaret, LeadsToTheElementAtItsPlaceInTheViewTakenAsAPlaceOnTheScreen) {
  Show("<input id=f value=abc aria-label=Field>");
  gtk_window_move(GTK_WINDOW(window_), 0, 0);
  Run("document.getElementById('f').focus()");
  const ScreenPoint caret = CaretBeyond(99);
  AccessibleKid kid;
  const auto at_caret = access_().IAccessibleObjectFromCaretPos(kid);
  const auto at_place = accessibility_->ObjectFromPoint(caret);
  ASSERT_EQ(at_caret == nullptr, at_place.object == nullptr);
  if (at_caret) {
    EXPECT_EQ(at_caret->Text(AccessibleText::Name, {}),
              at_place.object->Text(AccessibleText::Name, {}));
  }
}

TEST_F(PageCaret, PageWithoutOneHasNone) {
  Show("<p>Only words");
  const ScreenPoint caret = accessibility_->CaretPos();
  EXPECT_EQ(caret.x, 0);
  EXPECT_EQ(caret.y, 0);
}

class ControlCaret : public AccessTest {
 protected:
  ControlCaret() {
    gtk_container_remove(GTK_CONTAINER(window_), browser_->widget().gobj());
    gtk_container_add(GTK_CONTAINER(window_), field_);
    gtk_entry_set_text(GTK_ENTRY(field_), "abcdef");
    gtk_widget_set_margin_start(field_, 200);
    gtk_widget_show(field_);
    gtk_window_present(GTK_WINDOW(window_));
  }
  ScreenPoint At(int position) {
    gtk_editable_set_position(GTK_EDITABLE(field_), position);
    return accessibility_->CaretPos();
  }

  GtkWidget* field_ = gtk_entry_new();
};

TEST_F(ControlCaret, IsCountedFromTheCornerOfTheControlThatHasTheFocus) {
  gtk_widget_grab_focus(field_);
  ASSERT_TRUE(WaitUntil([&] { return gtk_widget_has_focus(field_); }));
  ASSERT_TRUE(WaitUntil([&] { return gtk_widget_get_allocated_width(field_) > 100; }));
  const ScreenPoint begin = At(0);
  EXPECT_GE(begin.x, 0);
  EXPECT_LT(begin.x, 30) << "the field itself stands 200 pixels from the window's edge";
  EXPECT_GE(begin.y, 0);
  const ScreenPoint third = At(3);
  EXPECT_GT(third.x, begin.x + 10);
  EXPECT_EQ(third.y, begin.y);
  EXPECT_GT(At(5).x, third.x);
}

TEST_F(ControlCaret, ControlWithoutTextHasNone) {
  GtkWidget* button = gtk_button_new_with_label("Go");
  gtk_container_remove(GTK_CONTAINER(window_), field_);
  gtk_container_add(GTK_CONTAINER(window_), button);
  gtk_widget_show(button);
  gtk_widget_grab_focus(button);
  ASSERT_TRUE(WaitUntil([&] { return gtk_widget_has_focus(button); }));
  const ScreenPoint caret = accessibility_->CaretPos();
  EXPECT_EQ(caret.x, 0);
  EXPECT_EQ(caret.y, 0);
}

}  // namespace
}  // namespace corvane::desktop
