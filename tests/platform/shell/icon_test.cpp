#include <gtest/gtest.h>
#include <gtkmm/main.h>

#include "platform/linux/gtk/controls/image_list.h"
#include "platform/linux/shell/file_shell.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

class Toolkit : public testing::Environment {
  void SetUp() override {
    Gtk::Main::init_gtkmm_internals();
    gtk_init(nullptr, nullptr);
  }
};
const auto* const toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

TEST(ShellIcons, FoldersHaveAPictureInBothSizes) {
  test::TemporaryFolder folder;
  FileShell shell(folder.Path());
  PixbufList images;
  images.Add("large", shell.GetIcon(folder.Path(), kIconLarge));
  images.Add("small", shell.GetIcon(folder.Path(), kIconSmall));
  ASSERT_TRUE(images.Pixbuf(1));
  EXPECT_EQ(images.Pixbuf(1)->get_height(), 24);
  ASSERT_TRUE(images.Pixbuf(2));
  EXPECT_EQ(images.Pixbuf(2)->get_height(), 16);
}

TEST(ShellIcons, WhatIsNotThereIsBlank) {
  test::TemporaryFolder folder;
  FileShell shell(folder.Path());
  PixbufList images;
  EXPECT_EQ(images.Add("", shell.GetIcon(folder / "gone", kIconLarge)), 1);
  EXPECT_FALSE(images.Pixbuf(1));
  EXPECT_FALSE(images.Pixbuf(0));
  EXPECT_FALSE(images.Pixbuf(2));
}

TEST(ShellIcons, StockHasAPictureForEveryKindOfPageItem) {
  PixbufList images;
  for (const auto image :
       {StockImage::Document, StockImage::Links, StockImage::Link, StockImage::Frames,
        StockImage::Frame, StockImage::Anchors, StockImage::Anchor, StockImage::Forms,
        StockImage::Form, StockImage::FormElement}) {
    EXPECT_TRUE(images.Pixbuf(images.Add("key", image))) << static_cast<int>(image);
  }
  images.SetTag(1, "tag");
  EXPECT_EQ(images.Tag(1), "tag");
  EXPECT_EQ(images.Key(10), "key");
}

}  // namespace
}  // namespace corvane::desktop
