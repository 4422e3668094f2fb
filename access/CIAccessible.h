#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/accessible.h"
#include "platform/windows.h"

namespace corvane {

/// Asks accessible objects and never fails loudly: whatever goes wrong, the
/// answer is empty. An element is an object with a child identifier `vKid`; an
/// empty one means the object itself. Objects may be null.
class CIAccessible {
 public:
  CIAccessible(Accessibility& accessibility, const Windows& windows)
      : accessibility_(accessibility), windows_(windows) {}

  AccessiblePtr IAccessibleObjectFromWindow(WindowHandle hWnd, std::int32_t dwId) const;
  WindowHandle hWndFromAccessibleObject(const AccessiblePtr& pIAccessible) const;
  AccessiblePtr IAccessibleObjectFromPointer(AccessibleKid& vKid) const;
  AccessiblePtr IAccessibleObjectFromCaretPos(AccessibleKid& vKid) const;
  WindowHandle hWndFromCaretPos() const;
  AccessiblePtr accParent(const AccessiblePtr& pIAccessible) const;
  /// What the role is called in the user's language.
  std::string RoleText(int dwRole) const;
  /// The class name of the element's window, and the window itself.
  std::string ClassNameFromAccessibleObject(const AccessiblePtr& pIAccessible, AccessibleKid vKid,
                                            WindowHandle& hWnd) const;

  std::string accName(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::string accValue(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::string accDescription(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::string accHelp(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::string accDefaultAction(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::string accKeyboardShortcut(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  int accRole(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  std::uint32_t accState(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;
  int accChildCount(const AccessiblePtr& pIAccessible) const;
  /// Screen pixels.
  void accLocation(const AccessiblePtr& pIAccessible, int& lLeft, int& lTop, int& lWidth,
                   int& lHeight, AccessibleKid vKid) const;

  void accSelect(const AccessiblePtr& pIAccessible, int lFlags, AccessibleKid vKid) const;
  void accDoDefaultAction(const AccessiblePtr& pIAccessible, AccessibleKid vKid) const;

  /// Fills two parallel arrays with the children, all of them or the first
  /// `intChildMax`; returns how many there are. A simple element stands as its
  /// parent's object with its identifier.
  int IAccessibleChildren(std::vector<AccessiblePtr>& objIAChild, std::vector<AccessibleKid>& vKids,
                          const AccessiblePtr& pIAccessible, bool blnAllChildren,
                          int intChildMax = 0) const;
  /// Sets `sText` to the visible leaves below an element, one a line, each with
  /// a full stop, with its role in front if asked for. `rLevel` is the depth.
  void GetBottomChildrenInfo(const AccessiblePtr& pIAccessible, AccessibleKid vKid, bool bSayRole,
                             int rLevel, std::string& sText) const;
  /// The object's ancestor, or the object itself, that is a child of the desktop.
  void FindTopParent(const AccessiblePtr& pIAccessible, int rLevel, AccessiblePtr& pResult) const;
  /// The nearest ancestor that is a dialog.
  void FindParentDialog(const AccessiblePtr& pIAccessible, int rLevel,
                        AccessiblePtr& pResult) const;

 private:
  std::string Text(AccessibleText which, const AccessiblePtr& object, AccessibleKid kid) const;
  AccessiblePtr ObjectOf(const AccessiblePtr& object, AccessibleKid kid) const;
  bool IsDesktop(const AccessiblePtr& object) const;
  std::string LeafLine(const AccessiblePtr& object, AccessibleKid kid, bool say_role) const;

  Accessibility& accessibility_;
  const Windows& windows_;
};

}  // namespace corvane
