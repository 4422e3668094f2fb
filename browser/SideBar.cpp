#include "browser/SideBar.h"

namespace corvane {

SideBar::SideBar(PaneContext& pane, PaneSettings& settings, PaneLayout& layout)
    : pane_(pane), settings_(settings), layout_(layout) {
  TreeView& tree = *pane_.controls.TreeView1;
  connections_ += tree.GotFocus.Connect([this] { TreeView1_GotFocus(); });
  connections_ += tree.NodeClick.Connect([this](TreeNode& node) { TreeView1_NodeClick(node); });
  connections_ += tree.KeyUp.Connect([this](KeyEvent& key) { TreeView1_KeyUp(key); });
  connections_ += pane_.menu.mnuSideBarContent.Click.Connect(
      [this](int index) { mnuSideBarContent_Click(index); });
}

void SideBar::mnuSideBarContent_Click(int index) {
  settings_.mnuSideBarContent_Click(index);
  layout_.ShowSideBar(index != kSideBarNone);
  ErrorsIgnored([&] { pane_.controls.TreeView1->Clear(); });
}

void SideBar::TreeView1_GotFocus() {
  ErrorsIgnored([&] {
    const TreeNode* selected = pane_.controls.TreeView1->SelectedItem();
    pane_.announcer.AddAndSay(Required(selected).Text() + " Sidebar Item");
  });
}

void SideBar::TreeView1_NodeClick(const TreeNode& node) {
  ErrorsIgnored([&] {
    std::string words = node.Text() + " ";
    if (node.Children() > 0) words += node.Expanded() ? "Opened" : "Closed";
    pane_.announcer.AddAndSay(words);
  });
}

void SideBar::TreeView1_KeyUp(const KeyEvent& key) {
  ErrorsIgnored([&] {
    if (key.KeyCode == kKeyEscape) {
      const int content = pane_.menu.mnuSideBarContent.FirstChecked();
      if (content >= 0) mnuSideBarContent_Click(content);
    } else if (key.KeyCode == kKeyF1) {
      const TreeNode* selected = pane_.controls.TreeView1->SelectedItem();
      pane_.announcer.AddAndSay(Required(selected).Tag());
    }
  });
}

}  // namespace corvane
