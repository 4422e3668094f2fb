#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/main.h>

#include <memory>
#include <string>
#include <vector>

#include "access/CIAccessible.h"
#include "platform/linux/access/linux_accessibility.h"
#include "platform/linux/web/webkit_browser.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {

/// A window with a browser control in it and the desktop's accessibility.
class AccessTest : public testing::Test {
 protected:
  AccessTest() {
    Gtk::Main::init_gtkmm_internals();
    gtk_window_set_default_size(GTK_WINDOW(window_), 800, 600);
    WindowTable::Entry entry;
    entry.class_name = "Form";
    entry.widget = Glib::wrap(window_);
    top_ = windows_.Add(std::move(entry));
    browser_ = std::make_unique<WebKitBrowser>("brwWebBrowser", SharedEngine(), windows_);
    gtk_container_add(GTK_CONTAINER(window_), browser_->widget().gobj());
    gtk_window_set_title(GTK_WINDOW(window_), "Elements");
    gtk_widget_show_all(window_);
    accessibility_ = std::make_unique<LinuxAccessibility>(windows_);
    problems_ += accessibility_->Problem.Connect(
        [this](const std::string& problem) { said_.push_back(problem); });
  }
  ~AccessTest() override {
    accessibility_.reset();
    browser_.reset();
    windows_.Remove(top_);
    gtk_widget_destroy(window_);
  }

  void Go(const std::string& address) {
    browser_->Navigate2(address);
    ASSERT_TRUE(WaitUntil([this] { return !browser_->Busy(); }));
  }
  /// Fetches the page's elements until its document is there.
  AccessiblePtr FetchPage() {
    AccessiblePtr page;
    EXPECT_TRUE(WaitUntil([&] {
      FetchOnce();
      page = accessibility_->ObjectFromWindow(browser_->hwnd(), kObjectClient);
      return page && page->ChildCount() > 0;
    })) << "no elements";
    return page;
  }
  void FetchOnce() {
    bool done = false;
    const auto fetching =
        accessibility_->Fetch({browser_->hwnd()}, Accessibility::Depth::All, [&] { done = true; });
    EXPECT_TRUE(WaitUntil([&] { return done; })) << "never fetched";
  }

  /// Every element below one, as "role words: name = value".
  void List(const AccessiblePtr& object, std::vector<std::string>& all) {
    std::vector<AccessiblePtr> children;
    std::vector<AccessibleKid> kids;
    access_().IAccessibleChildren(children, kids, object, true);
    for (const auto& child : children) {
      const auto value = child->Text(AccessibleText::Value, {});
      all.push_back(accessibility_->RoleText(child->Role({})) + ": " +
                    child->Text(AccessibleText::Name, {}) + (value.empty() ? "" : " = " + value));
      List(child, all);
    }
  }
  std::vector<std::string> Listed(const AccessiblePtr& object) {
    std::vector<std::string> all;
    List(object, all);
    return all;
  }
  /// The element of that name below one; null for none.
  AccessiblePtr Named(const AccessiblePtr& object, const std::string& name) {
    for (const auto& child : object->Children(object->ChildCount())) {
      if (child.object->Text(AccessibleText::Name, {}) == name) return child.object;
      if (auto found = Named(child.object, name)) return found;
    }
    return nullptr;
  }
  CIAccessible access_() { return CIAccessible(*accessibility_, windows_); }

  TestServer server_;
  WindowTable windows_;
  GtkWidget* window_ = (TestOptions(), gtk_window_new(GTK_WINDOW_TOPLEVEL));
  WindowHandle top_ = 0;
  std::unique_ptr<WebKitBrowser> browser_;
  std::unique_ptr<LinuxAccessibility> accessibility_;
  std::vector<std::string> said_;  ///< problems
  Connections problems_;
};

}  // namespace corvane::desktop
