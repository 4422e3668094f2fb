#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/access/desktop_reader.h"
#include "platform/linux/access/element.h"
#include "platform/linux/access/whole_object.h"

namespace corvane::desktop {

/// What the elements of one fetched tree have in common.
struct RemoteTree {
  std::shared_ptr<AccessBus> bus;
  std::shared_ptr<const Snapshot> snapshot;
  WindowHandle window = 0;
  ElementRef root;
  /// The root is what a page's process has put into a window: the page's document, which
  /// stands for it, lies in there and has not been looked for.
  bool is_plug = false;
  AccessiblePtr host;  ///< the element that the tree hangs in
  /// How elements are asked for their place. A page's are in their window: to know
  /// it on the screen, the page's process would have to ask us, who wait.
  reader::Coordinates coordinates = reader::Coordinates::Screen;
  /// Where what those places count from lies on the screen.
  std::function<ScreenPoint()> origin = [] { return ScreenPoint(); };
};

/// An element of another process. Texts, role and state are those of the time
/// when it was read. A few children are read anew when they are asked for, if
/// their program answers while the user does not notice; otherwise, and when
/// there are many, they are those that were fetched, or the first few if none were.
class RemoteAccessible : public WholeObject, public std::enable_shared_from_this<RemoteAccessible> {
 public:
  RemoteAccessible(std::shared_ptr<const RemoteTree> tree, Element element)
      : tree_(std::move(tree)), element_(std::move(element)) {}

  int ChildCount() const override { return element_.child_count; }
  std::vector<AccessibleElement> Children(int most) const override;
  AccessiblePtr Parent() const override;
  WindowHandle Window() const override { return tree_->window; }

  /// Reads at most `most` children from number `from` on; `done` is called on the bus's
  /// thread.
  void ReadChildren(int from, int most, std::function<void(std::vector<Element>)> done) const;
  /// What has been read of this element's children as objects.
  std::vector<AccessibleElement> Objects(std::vector<Element> elements) const;
  /// The innermost element at a point of the screen; null for none.
  AccessiblePtr At(ScreenPoint point) const;

 private:
  using Found = std::function<void(const std::optional<ElementRef>&)>;
  using Find = std::function<void(const Found&)>;
  bool IsUnread() const { return tree_->is_plug && element_.ref == tree_->root; }
  /// Finds the element on the bus that answers for this one; for the bus's thread.
  Find Finder() const;
  std::string OwnText(AccessibleText which) const override;
  int OwnRole() const override { return element_.role; }
  std::uint32_t OwnState() const override { return element_.state; }
  ScreenRect OwnLocation() const override;
  void OwnSelect(int flags) override;
  void OwnDefaultAction() override;
  std::string AskForText(const char* interface, const char* method) const;

  std::shared_ptr<const RemoteTree> tree_;
  Element element_;
};

}  // namespace corvane::desktop
