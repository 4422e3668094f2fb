#pragma once

#include <atk/atk.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/access/whole_object.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// An element of one of the program's own windows, asked without a bus.
class LocalAccessible : public WholeObject {
 public:
  /// What lies around own elements and is none.
  struct Family {
    virtual ~Family() = default;
    /// What another process shows in a socket; null for nothing.
    virtual AccessiblePtr Inside(AtkObject* socket) = 0;
    virtual AccessiblePtr Desktop() = 0;
    /// The windows of other programs.
    virtual std::vector<AccessiblePtr> OtherWindows() = 0;
    virtual WindowHandle WindowOf(AtkObject* object) = 0;
  };

  LocalAccessible(std::weak_ptr<Family> family, AtkObject* object)
      : family_(std::move(family)), object_(ATK_OBJECT(g_object_ref(object))) {}

  int ChildCount() const override;
  std::vector<AccessibleElement> Children(int most) const override;
  AccessiblePtr Parent() const override;
  WindowHandle Window() const override;

 private:
  std::string OwnText(AccessibleText which) const override;
  int OwnRole() const override;
  std::uint32_t OwnState() const override;
  ScreenRect OwnLocation() const override;
  void OwnSelect(int flags) override;
  void OwnDefaultAction() override;
  std::string Value() const;
  bool Gone() const;

  std::weak_ptr<Family> family_;
  ObjectPtr<AtkObject> object_;
};

}  // namespace corvane::desktop
