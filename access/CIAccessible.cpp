#include "access/CIAccessible.h"

#include <exception>

#include "base/error.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr int kDeepest = 101;
constexpr const char* kDesktop = "Desktop";
// Buffers of the system's text functions; one character is the terminator.
constexpr std::size_t kClassNameBuffer = 255;
constexpr std::size_t kRoleTextBuffer = 256;

/// What the question answers, or an empty value when it fails.
template <class Question>
auto AnswerOrEmpty(Question&& question) -> decltype(question()) {
  try {
    return question();
  } catch (const std::exception&) {
    return decltype(question())();
  }
}

}  // namespace

// --- objects -----------------------------------------------------------------

AccessiblePtr CIAccessible::IAccessibleObjectFromWindow(WindowHandle hWnd,
                                                        std::int32_t dwId) const {
  return AnswerOrEmpty([&] { return accessibility_.ObjectFromWindow(hWnd, dwId); });
}

WindowHandle CIAccessible::hWndFromAccessibleObject(const AccessiblePtr& pIAccessible) const {
  return AnswerOrEmpty([&] { return Required(pIAccessible).Window(); });
}

AccessiblePtr CIAccessible::IAccessibleObjectFromPointer(AccessibleKid& vKid) const {
  const AccessibleElement found =
      AnswerOrEmpty([&] { return accessibility_.ObjectFromPoint(accessibility_.CursorPos()); });
  vKid = found.kid;
  return found.object;
}

// The caret's place is that in its own control, yet it is looked up as a place
// on the screen. Callers rely on the element that is found there.
AccessiblePtr CIAccessible::IAccessibleObjectFromCaretPos(AccessibleKid& vKid) const {
  const AccessibleElement found =
      AnswerOrEmpty([&] { return accessibility_.ObjectFromPoint(accessibility_.CaretPos()); });
  vKid = found.kid;
  return found.object;
}

WindowHandle CIAccessible::hWndFromCaretPos() const {
  AccessibleKid kid;
  const AccessiblePtr object = IAccessibleObjectFromCaretPos(kid);
  const WindowHandle own = hWndFromAccessibleObject(ObjectOf(object, kid));
  return own != 0 ? own : hWndFromAccessibleObject(object);
}

AccessiblePtr CIAccessible::accParent(const AccessiblePtr& pIAccessible) const {
  return AnswerOrEmpty([&] { return Required(pIAccessible).Parent(); });
}

std::string CIAccessible::RoleText(int dwRole) const {
  return AnswerOrEmpty(
      [&] { return text::left(accessibility_.RoleText(dwRole), kRoleTextBuffer - 1); });
}

std::string CIAccessible::ClassNameFromAccessibleObject(const AccessiblePtr& pIAccessible,
                                                        AccessibleKid vKid,
                                                        WindowHandle& hWnd) const {
  hWnd = hWndFromAccessibleObject(ObjectOf(pIAccessible, vKid));
  return AnswerOrEmpty([&] { return text::left(windows_.ClassName(hWnd), kClassNameBuffer - 1); });
}

// The element's own object, or the object that stands for it.
AccessiblePtr CIAccessible::ObjectOf(const AccessiblePtr& object, AccessibleKid kid) const {
  if (!kid) return object;
  const AccessiblePtr own = AnswerOrEmpty([&] { return Required(object).Child(*kid); });
  return own ? own : object;
}

// --- properties --------------------------------------------------------------

std::string CIAccessible::Text(AccessibleText which, const AccessiblePtr& object,
                               AccessibleKid kid) const {
  return AnswerOrEmpty([&] { return Required(object).Text(which, kid); });
}

std::string CIAccessible::accName(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  return Text(AccessibleText::Name, pIAccessible, vKid);
}

std::string CIAccessible::accValue(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  return Text(AccessibleText::Value, pIAccessible, vKid);
}

std::string CIAccessible::accDescription(const AccessiblePtr& pIAccessible,
                                         AccessibleKid vKid) const {
  return Text(AccessibleText::Description, pIAccessible, vKid);
}

std::string CIAccessible::accHelp(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  return Text(AccessibleText::Help, pIAccessible, vKid);
}

std::string CIAccessible::accDefaultAction(const AccessiblePtr& pIAccessible,
                                           AccessibleKid vKid) const {
  return Text(AccessibleText::DefaultAction, pIAccessible, vKid);
}

std::string CIAccessible::accKeyboardShortcut(const AccessiblePtr& pIAccessible,
                                              AccessibleKid vKid) const {
  return Text(AccessibleText::KeyboardShortcut, pIAccessible, vKid);
}

int CIAccessible::accRole(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  return AnswerOrEmpty([&] { return Required(pIAccessible).Role(vKid); });
}

std::uint32_t CIAccessible::accState(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  return AnswerOrEmpty([&] { return Required(pIAccessible).State(vKid); });
}

int CIAccessible::accChildCount(const AccessiblePtr& pIAccessible) const {
  return AnswerOrEmpty([&] { return Required(pIAccessible).ChildCount(); });
}

void CIAccessible::accLocation(const AccessiblePtr& pIAccessible, int& lLeft, int& lTop,
                               int& lWidth, int& lHeight, AccessibleKid vKid) const {
  const ScreenRect place = AnswerOrEmpty([&] { return Required(pIAccessible).Location(vKid); });
  lLeft = place.left;
  lTop = place.top;
  lWidth = place.width;
  lHeight = place.height;
}

// --- actions -----------------------------------------------------------------

void CIAccessible::accSelect(const AccessiblePtr& pIAccessible, int lFlags,
                             AccessibleKid vKid) const {
  AnswerOrEmpty([&] { Required(pIAccessible).Select(lFlags, vKid); });
}

void CIAccessible::accDoDefaultAction(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const {
  AnswerOrEmpty([&] { Required(pIAccessible).DoDefaultAction(vKid); });
}

// --- searches ----------------------------------------------------------------

int CIAccessible::IAccessibleChildren(std::vector<AccessiblePtr>& objIAChild,
                                      std::vector<AccessibleKid>& vKids,
                                      const AccessiblePtr& pIAccessible, bool blnAllChildren,
                                      int intChildMax) const {
  objIAChild.clear();
  vKids.clear();
  // The count may be that of an earlier moment; whoever wants all gets all.
  const int most = blnAllChildren ? kAllChildren : intChildMax;
  if (most <= 0) return 0;
  const auto delivered = AnswerOrEmpty([&] { return Required(pIAccessible).Children(most); });
  std::int32_t number = 0;
  for (const AccessibleElement& child : delivered) {
    if (++number > most) break;
    objIAChild.push_back(child.object ? child.object : pIAccessible);
    // An entry that is neither is asked by its place among its siblings.
    const AccessibleKid simple = child.kid ? child.kid : number;
    vKids.push_back(child.object ? AccessibleKid() : simple);
  }
  return static_cast<int>(objIAChild.size());
}

void CIAccessible::GetBottomChildrenInfo(const AccessiblePtr& pIAccessible, AccessibleKid vKid,
                                         bool bSayRole, int rLevel, std::string& sText) const {
  // A simple element has no children; those of the object that it is asked
  // through are its siblings.
  const int count = vKid.value_or(0) != 0 ? 0 : accChildCount(pIAccessible);
  if (count <= 0 || rLevel >= kDeepest) {
    sText = LeafLine(pIAccessible, vKid, bSayRole);
    return;
  }
  sText.clear();
  std::vector<AccessiblePtr> objects;
  std::vector<AccessibleKid> kids;
  IAccessibleChildren(objects, kids, pIAccessible, true);
  for (std::size_t i = 0; i < objects.size(); ++i) {
    if ((accState(objects[i], kids[i]) & kStateInvisible) != 0) continue;
    std::string below;
    GetBottomChildrenInfo(objects[i], kids[i], bSayRole, rLevel + 1, below);
    sText += below;
  }
}

std::string CIAccessible::LeafLine(const AccessiblePtr& object, AccessibleKid kid,
                                   bool say_role) const {
  const int role = accRole(object, kid);
  std::string line = say_role ? RoleText(role) + ", " : "";
  if (role == kRoleEditableText) {
    line += accValue(object, kid);
  } else if (role != kRoleGraphic) {
    line += accName(object, kid);
  }
  return line.empty() ? "" : line + ".\r\n";
}

bool CIAccessible::IsDesktop(const AccessiblePtr& object) const {
  return text::same_ignoring_case(accName(object, {}), kDesktop);
}

void CIAccessible::FindTopParent(const AccessiblePtr& pIAccessible, int rLevel,
                                 AccessiblePtr& pResult) const {
  // A copy: what is handed in may be the result's own variable.
  const AccessiblePtr object = pIAccessible;  // NOLINT(performance-unnecessary-copy-initialization)
  const AccessiblePtr parent = accParent(object);
  pResult.reset();
  if (rLevel >= kDeepest || !parent) return;
  if (IsDesktop(parent)) {
    pResult = object;
  } else {
    FindTopParent(parent, rLevel + 1, pResult);
  }
}

void CIAccessible::FindParentDialog(const AccessiblePtr& pIAccessible, int rLevel,
                                    AccessiblePtr& pResult) const {
  const AccessiblePtr parent = accParent(pIAccessible);
  pResult.reset();
  if (rLevel >= kDeepest || !parent || IsDesktop(parent)) return;
  if (accRole(parent, {}) == kRoleDialog) {
    pResult = parent;
  } else {
    FindParentDialog(parent, rLevel + 1, pResult);
  }
}

}  // namespace corvane
