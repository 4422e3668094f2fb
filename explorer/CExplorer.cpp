#include "explorer/CExplorer.h"

#include <algorithm>
#include <utility>

#include "base/handling.h"
#include "base/number.h"
#include "explorer/LabelPieces.h"
#include "explorer/WaitingItem.h"

namespace corvane {
namespace {

constexpr const char* kPlaceholder = "dummy99999999";
constexpr std::size_t kBetweenEvents = 64;  // children
constexpr float kListMargin = 730;          // twips that a filling column leaves free
constexpr float kLeastColumnWidth = 2000;   // twips

bool HoldsOnlyThePlaceholder(const TreeNode& node) {
  return node.Children() == 1 && node.Child(0).Text() == kPlaceholder;
}

std::string TextOf(const std::variant<std::string, float>& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? *text : number::from_single(std::get<float>(value));
}

float WidthOf(const std::variant<std::string, float>& value) {
  const auto* width = std::get_if<float>(&value);
  return width != nullptr ? *width : number::to_single(std::get<std::string>(value));
}

}  // namespace

void CExplorer::Init(TreeView& Tree, ListView* List, int Image, int SelectedImage, int ItemImage) {
  connections_.Clear();
  tree_ = &Tree;
  list_ = List;
  m_Image = Image;
  m_SelectedImage = SelectedImage;
  m_ItemImage = ItemImage;
  tree_->SetLabelEdit(TreeView::LabelEdit::Manual);
  connections_ += tree_->Expand.Connect([this](TreeNode& node) { TV_Expand(node); });
  connections_ += tree_->KeyDown.Connect([this](KeyEvent& key) { TV_KeyDown(key.KeyCode); });
  connections_ +=
      tree_->BeforeLabelEdit.Connect([this](bool& cancel) { TV_BeforeLabelEdit(cancel); });
  connections_ += tree_->AfterLabelEdit.Connect(
      [this](bool& cancel, const std::string& text) { TV_AfterLabelEdit(cancel, text); });
  connections_ += tree_->NodeClick.Connect([this](TreeNode& node) { TV_NodeClick(node); });
  ClearNodes();
  if (list_ != nullptr) ClearItems();
}

void CExplorer::SetRoot(std::shared_ptr<IExplorerItem> Item) {
  m_Root = std::move(Item);
  ClearNodes();
  AddExtraRoot(m_Root);
}

void CExplorer::AddExtraRoot(const std::shared_ptr<IExplorerItem>& Item) {
  const auto& item = Required(Item);
  NodeOptions options;
  options.Data = Item;
  options.HasChildren = item.HasChildren();
  options.Image = options.SelectedImage = item.IconIndex();
  AddNode(item.Text(), options);
}

void CExplorer::ClearNodes() {
  Required(tree_).Clear();
  m_Items.Clear();
}

TreeNode& CExplorer::AddNode(const std::string& Text, const NodeOptions& options) {
  TreeNode* parent = nullptr;
  if (!std::holds_alternative<std::monostate>(options.Parent)) {
    const std::size_t record = FindItemByData(options.Parent);
    parent = record == 0 ? nullptr : tree_->Find(m_Items.At(record).node);
    if (parent == nullptr) RaiseObjectNotSet();
    if (HoldsOnlyThePlaceholder(*parent)) tree_->Remove(parent->Child(0));
  }
  const int image = options.Image == 0 ? m_Image : options.Image;
  const int selected = options.SelectedImage == 0 ? image : options.SelectedImage;
  TreeNode& node = AddWithImages(parent, Text, image, selected);
  node.SetTag(options.TVItemData);
  if (!std::holds_alternative<std::monostate>(options.Data)) m_Items.Add(node.Id(), options.Data);
  if (options.HasChildren) AddDummyChild(node);
  return node;
}

TreeNode& CExplorer::AddWithImages(TreeNode* parent, const std::string& text, int image,
                                   int selected) {
  TreeNode* node = nullptr;
  ErrorsIgnored([&] { node = &tree_->Add(parent, text, image, selected); });
  return node != nullptr ? *node : tree_->Add(parent, text);
}

void CExplorer::AddDummyChild(TreeNode& node) {
  if (node.Children() == 0) tree_->Add(&node, kPlaceholder);
}

void CExplorer::RemoveNode(TreeNode& Node) { Remove(&Node, FindItemByNode(Node)); }

void CExplorer::RemoveNode(const ExplorerData& Value) {
  const std::size_t record = FindItemByData(Value);
  if (record != 0) Remove(tree_->Find(m_Items.At(record).node), record);
}

// The item may let events run while it deletes itself; node and record are
// looked up again afterwards.
void CExplorer::Remove(TreeNode* node, std::size_t record) {
  if (record == 0) return;
  const TreeNodeId id = m_Items.At(record).node;
  if (const auto item = ItemOf(m_Items.At(record).data)) {
    bool deleted = false;
    ErrorsIgnored([&] {
      item->Delete();
      deleted = true;
    });
    if (!deleted) return;
    record = m_Items.FindByNode(id);
    node = tree_->Find(id);
  }
  if (record != 0) m_Items.Remove(record);
  if (node != nullptr) tree_->Remove(*node);
}

const ExplorerData& CExplorer::ItemData(const TreeNode& Item) const {
  const std::size_t record = FindItemByNode(Item);
  if (record == 0) RaiseObjectNotSet();
  return m_Items.At(record).data;
}

void CExplorer::SetItemData(const TreeNode& Item, ExplorerData Value) {
  const std::size_t record = FindItemByNode(Item);
  if (record == 0) RaiseObjectNotSet();
  m_Items.SetData(record, std::move(Value));
}

TreeNode* CExplorer::GetNodeFromPath(const std::string& FullPath) const {
  const auto nodes = tree_->Nodes();
  const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const TreeNode* node) {
    return node->FullPath() == FullPath;
  });
  return found == nodes.end() ? nullptr : *found;
}

std::shared_ptr<IExplorerItem> CExplorer::GetItemObject(const TreeNode& Item) const {
  const std::size_t record = FindItemByNode(Item);
  return record == 0 ? nullptr : ItemOf(m_Items.At(record).data);
}

void CExplorer::ClearItems() { Required(list_).ClearItems(); }

ListItem& CExplorer::AddItem(const std::string& Text, const std::vector<std::string>& subitems) {
  ListItem& item = Required(list_).Add(Text, m_ItemImage, m_ItemImage);
  int column = 0;
  for (const auto& text : subitems) item.SetSubItem(++column, text);
  return item;
}

void CExplorer::RemoveItem(int Index) { Required(list_).Remove(Index); }

void CExplorer::SetColumns(const std::vector<std::variant<std::string, float>>& args) {
  ListView& list = Required(list_);
  list.ClearColumns();
  for (std::size_t i = 0; i < args.size(); i += 2) {
    float width = 0;
    if (i + 1 < args.size()) {
      width = WidthOf(args[i + 1]);
    } else {
      const int last = list.ColumnCount();
      const float used = last == 0 ? 0 : list.ColumnLeft(last) + list.ColumnWidth(last);
      width = std::max(list.Width() - used - kListMargin, kLeastColumnWidth);
    }
    list.AddColumn(TextOf(args[i]), width);
  }
}

void CExplorer::TV_Expand(TreeNode& Node) {
  if (!HoldsOnlyThePlaceholder(Node)) return;
  tree_->Remove(Node.Child(0));
  const std::size_t record = FindItemByNode(Node);
  if (record == 0) return;
  const ExplorerData data = m_Items.At(record).data;
  const auto item = ItemOf(data);
  if (!item) {
    GetChildren.Raise(data);
    return;
  }
  const TreeNodeId id = Node.Id();
  tree_->LockUpdate(true);
  ErrorsIgnored([&] {
    const auto children = item->GetChildren(*this, Node);
    AddChildren(id, data, children);
  });
  tree_->LockUpdate(false);
}

// Thousands of children take a while; events that are waiting run now and then, and may
// do away with the node or the whole tree. A few children are added in one go: what an
// item adds to them later then comes behind them.
void CExplorer::AddChildren(TreeNodeId node, const ExplorerData& parent,
                            const ExplorerItems& items) {
  std::size_t added = 0;
  for (const auto& item : items) {
    if (++added % kBetweenEvents == 0) desktop_.DoEvents();
    if (tree_->Find(node) == nullptr) return;
    ErrorsIgnored([&] { AddChild(parent, item); });
  }
}

void CExplorer::AddMoreChildren(TreeNodeId node, const ExplorerItems& items) {
  const TreeNode* parent = tree_->Find(node);
  const std::size_t record = parent == nullptr ? 0 : FindItemByNode(*parent);
  if (record == 0) return;
  const ExplorerData data = m_Items.At(record).data;
  TreeNode* waiting = parent->Children() > 0 ? &parent->Child(0) : nullptr;
  if (waiting != nullptr && !std::dynamic_pointer_cast<WaitingItem>(GetItemObject(*waiting))) {
    waiting = nullptr;
  }
  for (const auto& item : items) ErrorsIgnored([&] { AddChild(data, item); });
  if (waiting == nullptr) return;
  TreeNode* first = parent->Children() > 1 ? &parent->Child(1) : nullptr;
  const bool selected = tree_->SelectedItem() == waiting;
  if (selected && first != nullptr) tree_->SetSelectedItem(first);
  RemoveNode(*waiting);
  if (selected && first != nullptr) tree_->NodeClick.Raise(*first);  // who waited there hears it
}

void CExplorer::AddChild(const ExplorerData& parent, const std::shared_ptr<IExplorerItem>& item) {
  NodeOptions options;
  options.Data = item;
  options.Parent = parent;
  options.HasChildren = item->HasChildren();
  options.Image = options.SelectedImage = item->IconIndex();
  options.TVItemData = item->ItemData();
  for (const auto& piece : LabelPieces(item->Text())) {
    AddNode(piece, options);
    options.HasChildren = false;  // only the first piece can be opened
  }
}

void CExplorer::TV_KeyDown(int KeyCode) {
  if (KeyCode != kKeyDelete || !AllowDelete) return;
  if (TreeNode* selected = tree_->SelectedItem()) RemoveNode(*selected);
}

void CExplorer::TV_BeforeLabelEdit(bool& Cancel) const {
  if (!AllowRename) Cancel = true;
}

void CExplorer::TV_AfterLabelEdit(bool& Cancel, const std::string& NewString) {
  const TreeNode* selected = tree_->SelectedItem();
  const std::size_t record = selected == nullptr ? 0 : FindItemByNode(*selected);
  if (record == 0) return;
  const ExplorerData data = m_Items.At(record).data;
  if (const auto item = ItemOf(data)) {
    ErrorsIgnored([&] { item->SetText(NewString); },
                  [&] { Cancel = Cancel || item->Text() != NewString; });
  } else {
    RenameNode.Raise(data, NewString, Cancel);
  }
}

void CExplorer::TV_NodeClick(const TreeNode& Node) {
  const std::size_t record = FindItemByNode(Node);
  if (record == 0) return;
  const ExplorerData data = m_Items.At(record).data;
  if (const auto item = ItemOf(data)) {
    ErrorsIgnored([&] { item->ShowItems(*this); });
  } else {
    GetItems.Raise(data);
  }
}

}  // namespace corvane
