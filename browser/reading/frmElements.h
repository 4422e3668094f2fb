#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "browser/PaneContext.h"
#include "browser/reading/ElementLists.h"

namespace corvane {

/// The dialog that lists the elements of a page, one kind at a time. What is typed
/// narrows the list, Tab leads to the choice of the kind, Enter chooses an element to go
/// to and Ctrl+Enter one to act on, Escape none.
class frmElements {
 public:
  /// What the user has chosen.
  struct Choice {
    PageElement element;
    bool act = false;
  };

  /// `map` is looked at before Show returns and whenever another kind is chosen; both
  /// must outlive the dialog.
  frmElements(PaneContext& pane, const TextMap& map);
  frmElements(const frmElements&) = delete;
  frmElements& operator=(const frmElements&) = delete;

  /// Shows the list over `owner`, on the element nearest to the position in the text; that
  /// of another kind where the page has none of this.
  void ShowModal(Form& owner, ElementList list, int position);
  /// Closes it without a choice.
  void Close();

  /// The kind that the user wants: the one that it was shown with, or has been chosen since.
  ElementList List() const { return wanted_; }
  /// The dialog has been closed, with a choice or none; it may be destroyed from here.
  std::function<void(const std::optional<Choice>&)> closed;

 private:
  void Lay();
  void Fill();
  void FillKinds();
  void Select(std::size_t row);
  std::size_t Nearest() const;
  void Narrow(const std::string& typed);
  void KeyDown(KeyEvent& key);
  void KeyPress(int& character);
  ElementList WithElements(ElementList wanted) const;
  void KindChosen(const TreeNode& node);
  void ShowKind(ElementList list);
  void Choose(bool act);
  void SayAll();
  std::string EntryWords() const;
  std::optional<std::size_t> SelectedRow() const;
  void SayHowMany();

  PaneContext& pane_;
  const TextMap& map_;
  ElementList list_ = ElementList::Headings;    // that is shown
  ElementList wanted_ = ElementList::Headings;  // unless there is none of it
  int position_ = 0;
  std::string typed_;
  std::vector<ListedElement> elements_;  // of the kind
  std::vector<std::size_t> rows_;        // those that are shown, by their index there
  std::vector<TreeNode*> nodes_;         // of the rows
  std::optional<Choice> choice_;
  std::unique_ptr<ElasticFrame> ELAMain_;
  std::unique_ptr<TextBox> txtTyped_;
  std::unique_ptr<ElasticFrame> ELALists_;
  std::unique_ptr<TreeView> trvKinds_;
  std::unique_ptr<TreeView> trvElements_;
  std::unique_ptr<Timer> timTyped_;  // what has been typed is whole
  std::unique_ptr<Form> form_;
  Connections connections_;
};

}  // namespace corvane
