#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/control.h"

namespace corvane {

class ImageList;

/// Tells nodes apart, also from those that are gone: no two nodes of the process
/// ever have the same one.
using TreeNodeId = std::uint64_t;

/// One line of a tree; belongs to its tree and is gone when the tree removes it.
class TreeNode {
 public:
  TreeNode() = default;
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;
  virtual ~TreeNode() = default;

  virtual TreeNodeId Id() const = 0;
  /// The label; it ends at the first zero character of what was given.
  virtual std::string Text() const = 0;
  /// Text that is not shown: an address, a path.
  virtual std::string Tag() const = 0;
  virtual void SetTag(const std::string& tag) = 0;
  /// The node above; null at the top.
  virtual TreeNode* Parent() const = 0;
  virtual std::size_t Children() const = 0;
  /// The child at `index`, counted from 0, which must be there.
  virtual TreeNode& Child(std::size_t index) const = 0;
  virtual bool Expanded() const = 0;
  /// Opening raises Expand first, which may do away with the node.
  virtual void SetExpanded(bool expanded) = 0;

  /// The labels from the top down to this node, with "\" between them.
  std::string FullPath() const {
    const TreeNode* above = Parent();
    return above == nullptr ? Text() : above->FullPath() + '\\' + Text();
  }
};

/// The side bar's tree.
class TreeView : public Control {
 public:
  /// When a label can be edited: whenever the user likes, or only when
  /// StartLabelEdit is called.
  enum class LabelEdit { Automatic = 0, Manual = 1 };

  /// Appends a node below `parent`, or at the top when it is null. The pictures
  /// are indexes into the image list, 0 is none; RunTimeError when the list has
  /// no such picture.
  virtual TreeNode& Add(TreeNode* parent, const std::string& text, int image,
                        int selected_image) = 0;
  TreeNode& Add(TreeNode* parent, const std::string& text) { return Add(parent, text, 0, 0); }
  /// Removes the node and all below it.
  virtual void Remove(TreeNode& node) = 0;
  virtual void Clear() = 0;
  /// All nodes in the order in which they were added.
  virtual std::vector<TreeNode*> Nodes() const = 0;
  /// The node of that identity, or null when it is gone.
  virtual TreeNode* Find(TreeNodeId id) const = 0;
  /// The selected node, or null.
  virtual TreeNode* SelectedItem() const = 0;
  /// What becomes selected is brought into view, the nodes above it opened.
  virtual void SetSelectedItem(TreeNode* node) = 0;
  /// The pictures of the nodes; null for none. The list must live as long.
  virtual void SetImageList(const ImageList* images) = 0;
  virtual void SetLabelEdit(LabelEdit mode) = 0;
  /// Lets the user edit the selected node's label, unless BeforeLabelEdit cancels.
  /// Returns at once.
  virtual void StartLabelEdit() = 0;
  /// While locked, nothing is drawn.
  virtual void LockUpdate(bool locked) = 0;

  Event<TreeNode&> NodeClick;
  Event<> DblClick;
  /// A node is about to open: now its children are wanted.
  Event<TreeNode&> Expand;
  /// The user opened or closed a node, or tried to.
  Event<TreeNode&> Toggled;
  /// The selected node's label is about to be edited; setting the flag prevents it.
  Event<bool&> BeforeLabelEdit;
  /// The editing has ended with this label, the old one when the user gave it up;
  /// setting the flag keeps the old one.
  Event<bool&, const std::string&> AfterLabelEdit;
};

}  // namespace corvane
