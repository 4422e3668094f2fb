#include "explorer/CIAccessibleBrowser.h"

#include "base/handling.h"
#include "explorer/CExplorer.h"
#include "explorer/WaitingItem.h"

namespace corvane {
namespace {

constexpr const char* kSource = "IExplorerItem";
constexpr int kAtOnce = 32;  // children: what the user's next keys reach
constexpr int kPiece = 64;   // of the others

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

void CIAccessibleBrowser::AddIfShown(const AccessiblePtr& object, AccessibleKid kid,
                                     ExplorerItems& items) const {
  auto item = std::make_shared<CIAccessibleBrowser>(accessibility_, windows_);
  item->setChild(object, kid);
  item->blnShowInvisible = blnShowInvisible;
  if (item->Role == kRoleVanished) return;
  if (blnShowInvisible || (item->State & kStateInvisible) == 0) items.push_back(std::move(item));
}

ExplorerItems CIAccessibleBrowser::IExplorerItem_GetChildren(CExplorer& Explorer,
                                                             TreeNode& Parent) {
  ExplorerItems items;
  ErrorsIgnored([&] {
    std::vector<AccessiblePtr> objects;
    std::vector<AccessibleKid> kids;
    const int there = access_.accChildCount(objIAChild);
    const int told = access_.IAccessibleChildren(objects, kids, objIAChild, false, kAtOnce);
    for (std::size_t i = 0; i < objects.size(); ++i) AddIfShown(objects[i], kids[i], items);
    if (there == 0 || (told > 0 && told < kAtOnce)) return;
    if (told == 0) items.push_back(std::make_shared<WaitingItem>());
    FetchMore(Explorer, Parent.Id(), told);
  });
  return items;
}

// The node, and this item with it, may be gone before they come: then nothing is added.
void CIAccessibleBrowser::FetchMore(CExplorer& explorer, TreeNodeId node, int from) {
  const auto take = [=, this, &explorer](const std::vector<AccessibleElement>& children) {
    ExplorerItems items;
    for (const auto& child : children) AddIfShown(child.object, child.kid, items);
    explorer.AddMoreChildren(node, items);
    if (children.size() == kPiece) FetchMore(explorer, node, from + kPiece);
  };
  fetching_ = accessibility_.FetchChildren(objIAChild, from, kPiece, [take](const auto& children) {
    ErrorsIgnored([&] { take(children); });
  });
}

void CIAccessibleBrowser::IExplorerItem_SetText(const std::string& /*Value*/) {
  throw RunTimeError(kErrRefused, kSource, "Unable to delete this object");
}

void CIAccessibleBrowser::IExplorerItem_Delete() {
  throw RunTimeError(kErrRefused, kSource, "Unable to delete this object");
}

}  // namespace corvane
