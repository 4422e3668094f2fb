#include "browser/FavoriteCommands.h"

#include <utility>

#include "base/count.h"
#include "base/text.h"
#include "explorer/CDirectory.h"
#include "web/library/LinkFile.h"

namespace corvane {
namespace {

enum CommandKeys : int { kKeyD = 68, kKeyI = 73, kKeyF2 = 113 };

std::string Pages(std::size_t count) { return Counted(count, "bookmark", "bookmarks"); }

}  // namespace

FavoriteCommands::FavoriteCommands(PaneContext& pane, SideBar& side_bar)
    : pane_(pane), side_bar_(side_bar) {
  PaneControls& c = pane_.controls;
  std::vector<Control*> all = {c.brwWebBrowser.get(), &c.ctlText1.Text1(), c.TreeView1.get(),
                               c.cmbListLinks.get(), c.cboAddress.get()};
  for (const auto& button : c.cmdToolbar) all.push_back(button.get());
  for (Control* control : all) {
    connections_ += control->KeyDown.Connect([this](KeyEvent& key) { ControlKey(key); });
  }
  TreeView& tree = *c.TreeView1;
  connections_ += tree.KeyDown.Connect([this](KeyEvent& key) { TreeKey(key); });
  connections_ += tree.NodeClick.Connect([this](TreeNode&) { to_remove_ = 0; });
  connections_ +=
      tree.AfterLabelEdit.Connect([this](bool&, const std::string& name) { Renamed(name); });
}

template <class Body>
void FavoriteCommands::Saying(Body&& body) {
  try {
    body();
  } catch (const std::exception& error) {
    pane_.announcer.AddAndSay(error.what());
  }
}

void FavoriteCommands::ControlKey(KeyEvent& key) {
  if (key.KeyCode != kKeyD || key.Shift != kCtrlMask) return;
  key.KeyCode = 0;
  AddPage();
}

void FavoriteCommands::AddPage() {
  Saying([&] {
    const WebBrowser& browser = *pane_.controls.brwWebBrowser;
    const std::string address = browser.LocationURL();
    const bool is_about = text::same_ignoring_case(text::left(address, 6), "about:");
    if (address.empty() || is_about || IsHostileAddress(address, "")) {
      pane_.announcer.AddAndSay("There is no page to add to Favorites");
      return;
    }
    Favorites& favorites = side_bar_.Kept();
    const auto kept = favorites.Add(favorites.Folder(), browser.LocationName(), address);
    if (kept.is_new) side_bar_.FavoritesChanged();
    pane_.announcer.AddAndSay(kept.name +
                              (kept.is_new ? " added to Favorites" : " is already in Favorites"));
  });
}

void FavoriteCommands::TreeKey(KeyEvent& key) {
  const int code = key.KeyCode;
  if (!IsModifier(code) && code != kKeyDelete) to_remove_ = 0;
  const bool control = key.Shift == kCtrlMask;
  if (code == kKeyDelete && control) {
    key.KeyCode = 0;
    Saying([&] { Remove(); });
  } else if (code == kKeyF2 && key.Shift == 0) {
    key.KeyCode = 0;
    Saying([&] { StartRename(); });
  } else if (code == kKeyI && control) {
    key.KeyCode = 0;
    Saying([&] { Import(); });
  }
}

std::string FavoriteCommands::SelectedPath(bool in_history_too) const {
  const int content = pane_.menu.mnuSideBarContent.FirstChecked();
  if (content != kSideBarFavorites && !(in_history_too && content == kSideBarHistory)) return {};
  const TreeNode* selected = pane_.controls.TreeView1->SelectedItem();
  if (selected == nullptr || selected->Parent() == nullptr) return {};
  const auto item =
      std::dynamic_pointer_cast<CDirectory>(side_bar_.Explorer().GetItemObject(*selected));
  return item ? item->FilePath() : std::string();
}

// The item itself refuses to be deleted, so its record lets go of it first.
void FavoriteCommands::Remove() {
  const std::string path = SelectedPath(true);
  if (path.empty()) return;
  TreeView& tree = *pane_.controls.TreeView1;
  TreeNode& node = *tree.SelectedItem();
  const std::string name = node.Text();
  if (std::exchange(to_remove_, node.Id()) != node.Id()) {
    pane_.announcer.AddAndSay("Press Control Delete again to remove " + name +
                              (node.Children() > 0 ? " and all that is in it" : ""));
    return;
  }
  to_remove_ = 0;
  side_bar_.Kept().Remove(path);
  TreeNode* parent = node.Parent();
  CExplorer& explorer = side_bar_.Explorer();
  explorer.SetItemData(node, path);
  explorer.RemoveNode(node);
  tree.SetSelectedItem(parent);
  pane_.announcer.AddAndSay(name + " removed. " + parent->Text() + " Sidebar Item");
}

void FavoriteCommands::StartRename() {
  const std::string path = SelectedPath(false);
  if (path.empty()) return;
  TreeView& tree = *pane_.controls.TreeView1;
  to_rename_ = path;
  CExplorer& explorer = side_bar_.Explorer();
  explorer.AllowRename = true;
  tree.StartLabelEdit();
  explorer.AllowRename = false;
}

// The item refuses the name, because it stands for what was there when the tree
// was made; the file gets it, and the tree is made anew.
void FavoriteCommands::Renamed(const std::string& name) {
  const std::string path = std::exchange(to_rename_, {});
  const TreeNode* node = pane_.controls.TreeView1->SelectedItem();
  if (path.empty() || node == nullptr) return;
  if (name.empty() || name == node->Text()) {
    pane_.announcer.AddAndSay(node->Text() + " not renamed");
    return;
  }
  Saying([&] {
    const std::string old = node->Text();
    const std::string parent = node->Parent() != nullptr ? node->Parent()->FullPath() + '\\' : "";
    const std::string taken = side_bar_.Kept().Rename(path, name);
    side_bar_.FavoritesChanged(parent + taken);
    // The focus comes back to the tree, which must not cut this off.
    pane_.announcer.AddAndSay(old + " renamed to " + taken, true);
  });
}

void FavoriteCommands::Import() {
  const std::string path = SelectedPath(false);
  if (path.empty()) return;
  const auto imported = side_bar_.Kept().Import(path);
  side_bar_.FavoritesChanged();
  std::string words = Pages(imported.pages) + " taken over into " + imported.folder;
  if (imported.left_out > 0) words += ", " + std::to_string(imported.left_out) + " left out";
  pane_.announcer.AddAndSay(words);
}

}  // namespace corvane
