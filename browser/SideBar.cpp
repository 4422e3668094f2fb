#include "browser/SideBar.h"

#include <utility>

#include "browser/reading/ElementLists.h"
#include "explorer/CDirectory.h"
#include "explorer/CHTMLStructure.h"
#include "explorer/CPageElements.h"
#include "explorer/mIShellFolder.h"
#include "web/library/LinkFile.h"

namespace corvane {
namespace {

/// Folders, files, what can be opened, links and what can be linked to.
constexpr std::uint32_t kFolderMask = 0xE0010004;

/// The pictures of page structure items, in the order of their kinds.
constexpr StockImage kPageImages[] = {
    StockImage::Document, StockImage::Links,      StockImage::Link,   StockImage::Frames,
    StockImage::Frame,    StockImage::Anchors,    StockImage::Anchor, StockImage::Forms,
    StockImage::Form,     StockImage::FormElement};

std::string NoAddressIn(const TreeNode& node) { return "No address in " + node.Text(); }

}  // namespace

SideBar::SideBar(PaneContext& pane, PaneSettings& settings, PaneLayout& layout)
    : pane_(pane),
      settings_(settings),
      layout_(layout),
      explorer_(pane.desktop),
      accessibility_(pane, explorer_),
      favorites_(pane.desktop, pane.manner),
      icons_large_(pane.desktop.CreateImageList()),
      icons_small_(pane.desktop.CreateImageList()),
      page_images_(pane.desktop.CreateImageList()) {
  TreeView& tree = *pane_.controls.TreeView1;
  for (const StockImage image : kPageImages) page_images_->Add("", image);
  explorer_.Init(tree, nullptr, 0, 0, 0);
  connections_ += tree.GotFocus.Connect([this] { SaySelected(pane_.state.quiet); });
  connections_ += tree.NodeClick.Connect([this](TreeNode& node) { TreeView1_NodeClick(node); });
  // Opening a node by key is heard like choosing it.
  connections_ += tree.Toggled.Connect([this](TreeNode& node) { TreeView1_NodeClick(node); });
  connections_ += tree.DblClick.Connect([this] { TreeView1_DblClick(); });
  connections_ += tree.KeyDown.Connect([this](KeyEvent& key) { TreeView1_KeyDown(key); });
  connections_ += tree.KeyUp.Connect([this](KeyEvent& key) { TreeView1_KeyUp(key); });
  connections_ += accessibility_.Made.Connect([this] { Made(); });
  connections_ += pane_.menu.mnuSideBarContent.Click.Connect(
      [this](int index) { mnuSideBarContent_Click(index); });
}

SideBar::~SideBar() {
  ErrorsIgnored([&] { pane_.controls.TreeView1->SetImageList(nullptr); });
}

void SideBar::mnuSideBarContent_Click(int index) {
  settings_.mnuSideBarContent_Click(index);
  layout_.ShowSideBar(index != kSideBarNone);
  ErrorsIgnored([&] { Show(index); });
}

// Another content begins: what was being made is given up.
unsigned SideBar::Begin() {
  outline_ = false;
  say_first_ = false;
  describing_.Disconnect();
  accessibility_.GiveUp();
  return ++shown_;
}

void SideBar::Close() {
  Begin();
  explorer_.ClearNodes();
}

void SideBar::Show(int content) {
  Begin();
  explorer_.ClearNodes();
  switch (content) {
    case kSideBarFavorites:
      ShowFolder(std::to_string(kFolderFavorites));
      break;
    case kSideBarHistory:
      ShowFolder(HistoryPath());
      break;
    case kSideBarPageStructure:
      // The page may have changed since it was read.
      describing_ = pane_.controls.brwWebBrowser->Describe(
          [this](const HTMLDocumentPtr& document) { ShowStructure(document); });
      break;
    case kSideBarAccessibility:
      RefreshAABrowser();
      break;
    default:
      break;
  }
}

std::string SideBar::HistoryPath() const {
  Shell& shell = pane_.desktop.GetShell();
  const auto place = shell.SpecialFolderLocation(kFolderHistory);
  if (!place) return {};
  return shell.GetPathFromIdList(
      mIShellFolder::Concatenated(mIShellFolder::ParentOf(*place), "History"));
}

// Fetching an icon lets events run, in which the user may choose another content
// or close the window.
void SideBar::ShowFolder(const std::string& path) {
  const unsigned mine = Begin();
  const auto root = std::make_shared<CDirectory>(pane_.desktop);
  root->Initialize(icons_large_, icons_small_);
  root->SetPath(path);
  root->Filters(kFolderMask);
  if (shown_ != mine) return;
  pane_.controls.TreeView1->SetImageList(icons_large_.get());
  explorer_.SetRoot(root);
}

void SideBar::RefreshTreeStructure() {
  Begin();
  ShowStructure(pane_.controls.brwWebBrowser->Document());
}

void SideBar::ShowStructure(const HTMLDocumentPtr& document) {
  const unsigned mine = shown_;
  if (!document) {
    explorer_.ClearNodes();
    return;
  }
  const auto root = std::make_shared<CHTMLStructure>(pane_.desktop);
  root->setChild({document, nullptr, 0}, CHTMLStructure::kDocument);
  if (pane_.manner.more_structure) root->AddBelow([this] { return MoreBranches(); });
  if (shown_ != mine) return;
  pane_.controls.TreeView1->SetImageList(page_images_.get());
  explorer_.SetRoot(root);
  Made();
}

// Asked for when the document's node is opened: the text comes behind the page's title.
ExplorerItems SideBar::MoreBranches() const {
  const TextMap* map = map_ ? map_() : nullptr;
  if (map == nullptr) return {};
  ExplorerItems branches;
  for (const auto list : {ElementList::Headings, ElementList::Landmarks, ElementList::Tables}) {
    std::vector<CPageElements::Entry> entries;
    for (auto& each : Listed(*map, list)) entries.push_back({std::move(each.words), each.element});
    branches.push_back(CPageElements::Branch(NameOf(list), std::move(entries),
                                             CHTMLStructure::kAnchors, CHTMLStructure::kAnchor));
  }
  return branches;
}

bool SideBar::FollowElement(TreeNode& node) {
  const auto item = std::dynamic_pointer_cast<CPageElements>(explorer_.GetItemObject(node));
  if (!item || item->Element().document.empty()) return false;
  ElementChosen.Raise(item->Element());
  return true;
}

void SideBar::Made() {
  if (!std::exchange(say_first_, false) || pane_.state.area != kAreaSideBar) return;
  if (SelectTop()) SaySelected(true);
}

void SideBar::RefreshAABrowser() {
  accessibility_.Reported([&] {
    Begin();
    pane_.controls.TreeView1->SetImageList(page_images_.get());
    accessibility_.RefreshAABrowser();
  });
}

TreeView& SideBar::ClearForOutline() {
  Begin();
  outline_ = true;
  explorer_.ClearNodes();
  return *pane_.controls.TreeView1;
}

bool SideBar::SelectTop() {
  TreeView& tree = *pane_.controls.TreeView1;
  const auto nodes = tree.Nodes();
  if (nodes.empty()) return false;
  tree.SetSelectedItem(nodes.front());
  return true;
}

bool SideBar::SelectFirst() {
  if (!SelectTop()) return false;
  SaySelected(pane_.state.quiet);
  return true;
}

void SideBar::FavoritesChanged(const std::string& select_path) {
  if (outline_ || pane_.menu.mnuSideBarContent.FirstChecked() != kSideBarFavorites) return;
  TreeView& tree = *pane_.controls.TreeView1;
  const TreeNode* selected = tree.SelectedItem();
  std::string wanted = select_path;
  if (wanted.empty() && selected != nullptr) wanted = selected->FullPath();
  Show(kSideBarFavorites);
  for (std::size_t at = wanted.find('\\');; at = wanted.find('\\', at + 1)) {
    TreeNode* node = explorer_.GetNodeFromPath(wanted.substr(0, at));
    if (node == nullptr) break;
    tree.SetSelectedItem(node);
    if (at == std::string::npos) break;
    node->SetExpanded(true);
  }
}

void SideBar::TreeView1_DblClick() {
  ErrorsIgnored([&] {
    TreeNode& node = Required(pane_.controls.TreeView1->SelectedItem());
    const int content = pane_.menu.mnuSideBarContent.FirstChecked();
    if (outline_) {
      Explain(node);
    } else if (content == kSideBarAccessibility) {
      accessibility_.Follow(node);
    } else if (content >= kSideBarFavorites) {
      Follow(node, content);
    }
  });
}

std::string SideBar::AddressOf(const TreeNode& node, int content) const {
  return content == kSideBarFavorites ? favorites_.AddressIn(node.Tag()) : node.Tag();
}

void SideBar::Explain(TreeNode& node) {
  if (node.Tag().empty()) {
    OpenOrClose(node);
  } else {
    pane_.announcer.AddAndSay(node.Tag());
  }
}

// What leads nowhere can still be opened; a leaf that leads nowhere says so.
void SideBar::Follow(TreeNode& node, int content) {
  if (content == kSideBarPageStructure && FollowElement(node)) return;
  const std::string address = AddressOf(node, content);
  if (address.empty()) {
    if (node.Children() > 0) {
      OpenOrClose(node);
    } else {
      pane_.announcer.AddAndSay(NoAddressIn(node));
    }
    return;
  }
  std::string from;
  if (content == kSideBarPageStructure) {
    const auto item = std::dynamic_pointer_cast<CHTMLStructure>(explorer_.GetItemObject(node));
    from = item && !item->Location().empty() ? item->Location() : "unknown:";
  }
  if (IsHostileAddress(address, from)) {
    pane_.announcer.AddAndSay(RefusedWords(address));
    return;
  }
  WebBrowser& browser = *pane_.controls.brwWebBrowser;
  if (content == kSideBarPageStructure && browser.GoToPlace(address)) return;
  pane_.StartReading();
  browser.Navigate2(address);
}

void SideBar::OpenOrClose(TreeNode& node) {
  const TreeNodeId id = node.Id();
  node.SetExpanded(!node.Expanded());
  if (const TreeNode* still = pane_.controls.TreeView1->Find(id)) TreeView1_NodeClick(*still);
}

// Each of the tree's words is a line of its own in the text pane.
void SideBar::SaySelected(bool after_title) {
  ErrorsIgnored([&] {
    const TreeNode* selected = pane_.controls.TreeView1->SelectedItem();
    const std::string words = Required(selected).Text() + " Sidebar Item";
    if (after_title) {
      pane_.announcer.AddAndSayAfterTitle(words);
    } else {
      pane_.announcer.AddAndSay(words);
    }
  });
}

void SideBar::TreeView1_NodeClick(const TreeNode& node) {
  ErrorsIgnored([&] {
    std::string words = node.Text() + " ";
    if (node.Children() > 0) words += node.Expanded() ? "Opened" : "Closed";
    pane_.announcer.AddAndSay(words);
  });
}

void SideBar::TreeView1_KeyDown(const KeyEvent& key) {
  if (key.KeyCode == kKeyReturn && key.Shift == 0) TreeView1_DblClick();
}

// Whoever has the tree made anew hears where it begins.
void SideBar::TreeView1_KeyUp(const KeyEvent& key) {
  ErrorsIgnored([&] {
    if (key.KeyCode == kKeyEscape) {
      const int content = pane_.menu.mnuSideBarContent.FirstChecked();
      if (content < 0) return;
      mnuSideBarContent_Click(content);
      say_first_ = !SelectFirst();
    } else if (key.KeyCode == kKeyF1) {
      const TreeNode& selected = Required(pane_.controls.TreeView1->SelectedItem());
      pane_.announcer.AddAndSay(selected.Tag().empty() ? NoAddressIn(selected) : selected.Tag());
    }
  });
}

}  // namespace corvane
