#pragma once

#include <cstddef>
#include <string>

#include "platform/control.h"

namespace corvane {

/// One line of a tree; belongs to its tree and is gone when the tree removes it.
class TreeNode {
 public:
  TreeNode() = default;
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;
  virtual ~TreeNode() = default;

  virtual std::string Text() const = 0;
  /// Text that is not shown: an address, a path.
  virtual std::string Tag() const = 0;
  virtual void SetTag(const std::string& tag) = 0;
  virtual std::size_t Children() const = 0;
  virtual bool Expanded() const = 0;
  virtual void SetExpanded(bool expanded) = 0;
};

/// The side bar's tree.
class TreeView : public Control {
 public:
  /// Appends a node below `parent`, or at the top when it is null.
  virtual TreeNode& Add(TreeNode* parent, const std::string& text) = 0;
  virtual void Clear() = 0;
  /// The selected node, or null.
  virtual TreeNode* SelectedItem() const = 0;
  virtual void SetSelectedItem(TreeNode* node) = 0;

  Event<TreeNode&> NodeClick;
  Event<> DblClick;
};

}  // namespace corvane
