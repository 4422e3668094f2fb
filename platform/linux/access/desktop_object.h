#pragma once

#include <memory>

#include "platform/linux/access/local_accessible.h"
#include "platform/linux/access/whole_object.h"

namespace corvane::desktop {

/// The desktop itself, above all windows of this program and of others.
class DesktopObject : public WholeObject {
 public:
  explicit DesktopObject(std::weak_ptr<LocalAccessible::Family> family)
      : family_(std::move(family)) {}

  int ChildCount() const override { return static_cast<int>(Windows().size()); }
  std::vector<AccessibleElement> Children(int most) const override;
  AccessiblePtr Parent() const override { return nullptr; }
  WindowHandle Window() const override { return 0; }

 private:
  std::string OwnText(AccessibleText which) const override;
  int OwnRole() const override;
  std::uint32_t OwnState() const override { return 0; }
  ScreenRect OwnLocation() const override;
  void OwnSelect(int /*flags*/) override {}
  void OwnDefaultAction() override {}
  std::vector<AccessiblePtr> Windows() const;

  std::weak_ptr<LocalAccessible::Family> family_;
};

}  // namespace corvane::desktop
