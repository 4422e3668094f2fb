#pragma once

#include "platform/linux/gtk/text_pane/rich_text_box.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {

/// A text box in a window of its own.
class RichTextBoxTest : public test::DesktopTest {
 protected:
  void Show() {
    window_.frame.Add(box_);
    window_.Show();
    box_.SetFocus();
    Settle();
  }
  void Press(guint keyval, guint state = 0) { Key(window_.form.window(), keyval, state); }
  /// Gives the selection, or the text to come, all of a format.
  void Give(const RichTextBox::Format& format) {
    box_.ChangeSelFormat([&](RichTextBox::Format& present) { present = format; });
  }
  void Select(int start, int length) {
    box_.SetSelStart(start);
    box_.SetSelLength(length);
  }

  test::TestWindow window_{windows_, 400, 300};
  RichTextBoxControl box_{"Text1", windows_};
  Connections listening_;
};

}  // namespace corvane::desktop
