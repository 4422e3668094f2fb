// What only decorates: pictures and lines.
#include <gtkmm/image.h>

#include "platform/linux/gtk/controls/command_button.h"
#include "platform/linux/gtk/controls/image.h"
#include "platform/linux/gtk/controls/line.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

class DecorationTest : public test::DesktopTest {};

TEST_F(DecorationTest, PicturesAreShownAndNeverHaveTheFocus) {
  for (const auto picture : {Image::Picture::Program, Image::Picture::Message}) {
    test::TestWindow window(windows_);
    ImageControl image("Image1", windows_);
    CommandButtonControl button("OK", windows_);
    image.SetPicture(picture);
    window.frame.Add(image);
    window.frame.Add(button);
    window.Show();
    auto& shown = dynamic_cast<Gtk::Image&>(image.widget());
    EXPECT_NE(shown.get_storage_type(), Gtk::IMAGE_EMPTY);
    EXPECT_TRUE(shown.get_mapped());
    EXPECT_GT(shown.get_width(), 0);
    EXPECT_FALSE(shown.get_can_focus());
    EXPECT_EQ(windows_.ClassName(image.hwnd()), "Image");
  }
}

TEST_F(DecorationTest, ALineTakesLittleRoomAndNoFocus) {
  test::TestWindow window(windows_);
  LineControl line("Line1", windows_);
  CommandButtonControl button("OK", windows_);
  window.frame.SetLayout(ElasticFrame::Layout::Above);
  window.frame.Add(line);
  window.frame.Add(button);
  window.Show();
  EXPECT_TRUE(line.widget().get_mapped());
  EXPECT_LT(line.widget().get_height(), 20);
  EXPECT_FALSE(line.widget().get_can_focus());
}

}  // namespace
}  // namespace corvane::desktop
