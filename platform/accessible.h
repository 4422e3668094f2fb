#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/event.h"
#include "platform/control.h"

namespace corvane {

/// The numbers of roles that the product itself compares with. A desktop
/// translates its own roles to these and their kin, 1 to 64.
enum AccessibleRole : int {
  kRoleVanished = -1,  ///< the element is there no more
  kRoleDocument = 15,
  kRoleDialog = 18,
  kRoleLink = 30,
  kRoleGraphic = 40,
  kRoleEditableText = 42,
};

/// Bits of a state.
enum AccessibleState : std::uint32_t { kStateInvisible = 0x8000 };

/// Flags of Select. All but the first are about what its container has selected.
enum AccessibleSelection : int {
  kSelectTakeFocus = 1,
  kSelectTakeSelection = 2,    ///< this element and no other
  kSelectExtendSelection = 4,  ///< from the first that is selected as far as this one
  kSelectAddSelection = 8,
  kSelectRemoveSelection = 16,
};

/// Which part of a window an object is asked for.
enum AccessibleObjectId : std::int32_t { kObjectWindow = 0, kObjectClient = -4 };

/// One of the texts that an element tells of itself.
enum class AccessibleText { Name, Value, Description, Help, DefaultAction, KeyboardShortcut };

/// However many children there are.
inline constexpr int kAllChildren = std::numeric_limits<int>::max();

/// The number of a simple element: a child that has no object of its own and is
/// asked through its parent. Empty: the object itself.
using AccessibleKid = std::optional<std::int32_t>;

class Accessible;
using AccessiblePtr = std::shared_ptr<Accessible>;

/// An object, or one of its simple elements.
struct AccessibleElement {
  AccessiblePtr object;
  AccessibleKid kid;
};

/// Pixels of the screen, or of a window where it is said.
struct ScreenPoint {
  int x = 0;
  int y = 0;
};
struct ScreenRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// One element of what a window shows, as assistive technologies see it. Answers
/// at once with what is known of the element; whatever cannot be had, because
/// the element or its program is gone, is empty. May raise RunTimeError for a
/// question that the element does not support.
class Accessible {
 public:
  Accessible() = default;
  Accessible(const Accessible&) = delete;
  Accessible& operator=(const Accessible&) = delete;
  virtual ~Accessible() = default;

  virtual std::string Text(AccessibleText which, AccessibleKid kid) const = 0;
  /// A role's number; kRoleVanished for an element that is gone.
  virtual int Role(AccessibleKid kid) const = 0;
  /// AccessibleState and its kin.
  virtual std::uint32_t State(AccessibleKid kid) const = 0;
  virtual int ChildCount() const = 0;
  /// The first `most` children, or kAllChildren, as they are now, however many
  /// ChildCount knew of. An entry without an object is the simple element of that
  /// number.
  virtual std::vector<AccessibleElement> Children(int most) const = 0;
  /// The object of a child that has one; null for a simple element.
  virtual AccessiblePtr Child(std::int32_t kid) const = 0;
  /// Null at the top, which is the desktop.
  virtual AccessiblePtr Parent() const = 0;
  virtual ScreenRect Location(AccessibleKid kid) const = 0;
  /// Asks the element to become focused, selected or no longer selected
  /// (AccessibleSelection).
  virtual void Select(int flags, AccessibleKid kid) = 0;
  virtual void DoDefaultAction(AccessibleKid kid) = 0;
  /// The window that contains the element, or 0.
  virtual WindowHandle Window() const = 0;
};

/// A desktop's accessibility: how objects are found and what roles are called.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// How much of a window is fetched: the element at its top, or all below it, too.
  /// Top leaves a page alone: one that is asked for anything may become slow to leave.
  enum class Depth { Top, All };
  /// Fetches what the windows show, without keeping the caller waiting; then
  /// calls `done` from the event loop. From then on the windows' objects answer
  /// what was fetched of them. For 0, the desktop, it is fetched which windows other
  /// programs have: from then on those are found like the program's own, and
  /// answer what they can answer at once. What cannot be fetched is raised as a
  /// Problem first.
  /// Letting go of the connection gives the request up.
  [[nodiscard]] virtual Connection Fetch(const std::vector<WindowHandle>& windows, Depth depth,
                                         std::function<void()> done) = 0;
  /// Reads at most `most` of the elements below one, from number `from` on (counted
  /// from 0), without keeping the caller waiting; then calls `done` from the event loop.
  /// Fewer than `most`: there are no more, or they cannot be had.
  /// Letting go of the connection gives the request up.
  [[nodiscard]] virtual Connection FetchChildren(
      const AccessiblePtr& parent, int from, int most,
      std::function<void(const std::vector<AccessibleElement>&)> done) = 0;

  /// The object of a window or of its contents (AccessibleObjectId); where windows
  /// have no frame of their own both are the same. The desktop's own, whose children
  /// are all windows, for 0. Null for none.
  virtual AccessiblePtr ObjectFromWindow(WindowHandle window, std::int32_t id) = 0;
  /// The innermost element at a point of the screen, whichever program's window
  /// lies uppermost there.
  virtual AccessibleElement ObjectFromPoint(ScreenPoint point) = 0;
  /// Where the mouse pointer is on the screen.
  virtual ScreenPoint CursorPos() const = 0;
  /// Where the caret is, in pixels of the control that holds it.
  virtual ScreenPoint CaretPos() const = 0;
  /// What the role is called in the user's language; empty for an unknown one.
  virtual std::string RoleText(int role) const = 0;

  /// That accessibility does not work, or no more, in a sentence for the user.
  /// Raised from the event loop.
  Event<const std::string&> Problem;
};

}  // namespace corvane
