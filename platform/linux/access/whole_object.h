#pragma once

#include <string>

#include "platform/accessible.h"

namespace corvane::desktop {

/// An element on this desktop, where every child is an object of its own: a
/// child's number, counted from 1, leads to that object, 0 to this one.
class WholeObject : public Accessible {
 public:
  std::string Text(AccessibleText which, AccessibleKid kid) const final;
  int Role(AccessibleKid kid) const final;
  std::uint32_t State(AccessibleKid kid) const final;
  AccessiblePtr Child(std::int32_t kid) const final;
  ScreenRect Location(AccessibleKid kid) const final;
  void Select(int flags, AccessibleKid kid) final;
  void DoDefaultAction(AccessibleKid kid) final;

 private:
  virtual std::string OwnText(AccessibleText which) const = 0;
  virtual int OwnRole() const = 0;
  virtual std::uint32_t OwnState() const = 0;
  virtual ScreenRect OwnLocation() const = 0;
  virtual void OwnSelect(int flags) = 0;
  virtual void OwnDefaultAction() = 0;
};

}  // namespace corvane::desktop
