#include "platform/linux/access/whole_object.h"

namespace corvane::desktop {
namespace {

bool IsSelf(AccessibleKid kid) { return kid.value_or(0) == 0; }

}  // namespace

AccessiblePtr WholeObject::Child(std::int32_t kid) const {
  if (kid < 1 || kid > ChildCount()) return nullptr;
  const auto children = Children(kid);
  return static_cast<int>(children.size()) < kid ? nullptr : children.back().object;
}

std::string WholeObject::Text(AccessibleText which, AccessibleKid kid) const {
  if (IsSelf(kid)) return OwnText(which);
  const auto child = Child(*kid);
  return child ? child->Text(which, {}) : "";
}

int WholeObject::Role(AccessibleKid kid) const {
  if (IsSelf(kid)) return OwnRole();
  const auto child = Child(*kid);
  return child ? child->Role({}) : static_cast<int>(kRoleVanished);
}

std::uint32_t WholeObject::State(AccessibleKid kid) const {
  if (IsSelf(kid)) return OwnState();
  const auto child = Child(*kid);
  return child ? child->State({}) : 0;
}

ScreenRect WholeObject::Location(AccessibleKid kid) const {
  if (IsSelf(kid)) return OwnLocation();
  const auto child = Child(*kid);
  return child ? child->Location({}) : ScreenRect();
}

void WholeObject::Select(int flags, AccessibleKid kid) {
  if (IsSelf(kid)) return OwnSelect(flags);
  if (const auto child = Child(*kid)) child->Select(flags, {});
}

void WholeObject::DoDefaultAction(AccessibleKid kid) {
  if (IsSelf(kid)) return OwnDefaultAction();
  if (const auto child = Child(*kid)) child->DoDefaultAction({});
}

}  // namespace corvane::desktop
