#include "explorer/CIAccessibleBrowser.h"

#include "base/handling.h"

namespace corvane {
namespace {

constexpr const char* kSource = "IExplorerItem";

}  // namespace

void CIAccessibleBrowser::setChild(const AccessiblePtr& child, AccessibleKid vKid) {
  objIAChild = child;
  m_vKid = vKid;
  const std::string name = access_.accName(child, vKid);
  value_ = access_.accValue(child, vKid);
  Role = access_.accRole(child, vKid);
  State = access_.accState(child, vKid);
  label_ = Label(name);
  // The children of the object that a simple element is asked through are not
  // the element's own.
  has_children_ = vKid.value_or(0) == 0 && access_.accChildCount(child) != 0;
}

std::string CIAccessibleBrowser::Label(const std::string& name) const {
  std::string role = access_.RoleText(Role);
  if (!name.empty()) return Role == kRoleEditableText ? name : name + " " + role;
  if (Role == kRoleLink || Role == kRoleEditableText) return role + ", " + value_;
  return role;
}

bool CIAccessibleBrowser::IsShown(const CIAccessibleBrowser& child) const {
  if (child.Role == kRoleVanished) return false;
  return blnShowInvisible || (child.State & kStateInvisible) == 0;
}

ExplorerItems CIAccessibleBrowser::IExplorerItem_GetChildren(CExplorer& /*Explorer*/,
                                                             TreeNode& /*Parent*/) {
  ExplorerItems items;
  ErrorsIgnored([&] {
    std::vector<AccessiblePtr> objects;
    std::vector<AccessibleKid> kids;
    access_.IAccessibleChildren(objects, kids, objIAChild, true);
    for (std::size_t i = 0; i < objects.size(); ++i) {
      auto item = std::make_shared<CIAccessibleBrowser>(accessibility_, windows_);
      item->setChild(objects[i], kids[i]);
      item->blnShowInvisible = blnShowInvisible;
      if (IsShown(*item)) items.push_back(std::move(item));
    }
  });
  return items;
}

void CIAccessibleBrowser::IExplorerItem_SetText(const std::string& /*Value*/) {
  throw RunTimeError(kErrRefused, kSource, "Unable to delete this object");
}

void CIAccessibleBrowser::IExplorerItem_Delete() {
  throw RunTimeError(kErrRefused, kSource, "Unable to delete this object");
}

}  // namespace corvane
