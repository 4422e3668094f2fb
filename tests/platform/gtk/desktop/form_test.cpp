#include "platform/linux/gtk/form.h"

#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

class FormTest : public test::DesktopTest {};

TEST_F(FormTest, AFormIsKnownToTheTableWhileItLives) {
  WindowHandle handle = 0;
  {
    FormWindow form("frmProcess", windows_);
    form.SetCaption("Marker1234");
    handle = form.hwnd();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(windows_.FindWindow("Marker1234"), handle);
    EXPECT_EQ(windows_.ClassName(handle), "Form");
  }
  EXPECT_EQ(windows_.FindWindow("Marker1234"), 0U);
}
}  // namespace
}  // namespace corvane::desktop
