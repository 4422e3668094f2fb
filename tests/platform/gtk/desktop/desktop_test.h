#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/widget.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/gtk/layout/elastic_frame.h"
#include "platform/linux/gtk/layout/form.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::test {

/// A test on a real display. A warning of the toolkit that the test did not
/// name with ExpectLog makes it fail.
class DesktopTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// A log message that contains `part` is no failure of this test.
  void ExpectLog(const std::string& part);

  /// Lets everything that is due happen, the layout and drawing of every window
  /// on the screen included.
  static void Settle();
  /// Lets things happen until the condition holds; the test fails when nothing
  /// makes it true.
  static void WaitFor(const std::string& what, const std::function<bool()>& condition);

  /// Presses and releases a key in the window that holds the widget, as the
  /// display would send it.
  static void Key(Gtk::Widget& widget, guint keyval, guint state = 0);
  static void KeyDown(Gtk::Widget& widget, guint keyval, guint state = 0);
  static void KeyUp(Gtk::Widget& widget, guint keyval, guint state = 0);
  /// Runs a command outside, such as xdotool, to its end; this program's events
  /// go on meanwhile.
  static void Outside(const std::vector<std::string>& command);

  desktop::WindowTable windows_;
};

/// A form with one frame, for tests of what is inside.
struct TestWindow {
  explicit TestWindow(desktop::WindowTable& windows, int width = 600, int height = 400);
  void Show();
  desktop::FormWindow form;
  desktop::ElasticFrameControl frame;
};

}  // namespace corvane::test
