#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "explorer/IExplorerItem.h"
#include "platform/desktop.h"
#include "platform/html_document.h"

namespace corvane {

/// An item of the loaded page's structure: the document, its links, frames,
/// anchors and forms, to any depth through frames. It shows the page as it was
/// when its root was made.
class CHTMLStructure : public IExplorerItem {
 public:
  /// What an item is; also the index of its picture.
  enum Kind : std::int16_t {
    kDocument = 1,
    kLinks,
    kLink,
    kFrames,
    kFrame,
    kAnchors,
    kAnchor,
    kForms,
    kForm,
    kFormElement,
  };
  /// What an item wraps. Collections and forms are wrapped as the document that
  /// has them.
  struct PageObject {
    HTMLDocumentPtr document;
    HTMLElementPtr element;  ///< of links, anchors and form elements
    std::size_t index = 0;   ///< of forms, among those of the document
  };

  explicit CHTMLStructure(Desktop& desktop) : desktop_(desktop) {}

  /// Lets waiting events run, then takes the object and reads its label.
  void setChild(PageObject object, Kind kind);

  /// Further branches of the document, below its own. Asked for when they are to be shown.
  void AddBelow(std::function<ExplorerItems()> branches) { branches_ = std::move(branches); }

  /// The address of the document that the item is or stands in.
  std::string Location() const;

 private:
  std::string IExplorerItem_Text() const override { return text_; }
  [[noreturn]] void IExplorerItem_SetText(const std::string& Value) override;
  std::string IExplorerItem_ItemData() const override { return href_; }
  void IExplorerItem_SetItemData(const std::string&) override {}
  int IExplorerItem_IconIndex() const override { return kind_; }
  void IExplorerItem_SetIconIndex(int) override {}
  bool IExplorerItem_HasChildren() const override { return has_children_; }
  ExplorerItems IExplorerItem_GetChildren(CExplorer& Explorer, TreeNode& Parent) override;
  void IExplorerItem_ShowItems(CExplorer&) override {}
  [[noreturn]] void IExplorerItem_Delete() override;

  void Add(ExplorerItems& items, PageObject object, Kind kind) const;
  void SetCollection(const std::string& word, std::size_t length);

  Desktop& desktop_;
  PageObject object_;
  std::int16_t kind_ = 0;
  std::string text_;
  std::string href_;
  bool has_children_ = false;
  std::function<ExplorerItems()> branches_;
};

}  // namespace corvane
