#include "browser/AccessibilityView.h"

#include "access/CWin32API.h"
#include "base/handling.h"
#include "explorer/CIAccessibleBrowser.h"
#include "platform/accessible.h"

namespace corvane {
namespace {

constexpr const char* kRenderingClass = "Internet Explorer_Server";
constexpr const char* kRenderingName = "HTML_Internet Explorer";
constexpr int kMostRetries = 2;

/// The element of a rendering window: called after the window, whatever the
/// page in it calls itself.
class RenderingWindow : public CIAccessibleBrowser {
 public:
  using CIAccessibleBrowser::CIAccessibleBrowser;

 private:
  std::string IExplorerItem_Text() const override {
    return std::string(kRenderingName) + " " + Access().RoleText(Role);
  }
};

}  // namespace

AccessibilityView::AccessibilityView(PaneContext& pane, CExplorer& explorer)
    : pane_(pane),
      explorer_(explorer),
      access_(pane.desktop.GetAccessibility(), pane.desktop.GetWindows()) {
  connections_ += pane_.controls.Timer1->Tick.Connect([this] { Timer1_Timer(); });
  connections_ += pane_.desktop.GetAccessibility().Problem.Connect(
      [this](const std::string& problem) { Say(problem); });
}

void AccessibilityView::Timer1_Timer() {
  Reported([&] {
    pane_.controls.Timer1->SetEnabled(false);
    Fetch();
  });
}

void AccessibilityView::RefreshAABrowser() {
  retries_ = 0;
  pane_.controls.Timer1->SetEnabled(false);
  Fetch();
}

void AccessibilityView::GiveUp() {
  pane_.controls.Timer1->SetEnabled(false);
  fetching_.Disconnect();
}

void AccessibilityView::Fetch() {
  failed_ = false;
  explorer_.ClearNodes();
  CWin32API search(pane_.desktop.GetWindows());
  search.FindWindow(pane_.controls.ELAMain->hwnd(), "", kRenderingClass, windows_, false);
  fetching_ = pane_.desktop.GetAccessibility().Fetch(windows_, Accessibility::Depth::Top,
                                                     [this] { Reported([&] { Build(); }); });
}

// A page that has just come may not have told its elements yet: then a root is
// missing or has nothing below it, and it is worth looking again.
void AccessibilityView::Build() {
  bool first = true;
  const auto windows = windows_;  // which another page may replace meanwhile
  for (const WindowHandle window : windows) {
    const AccessiblePtr object = access_.IAccessibleObjectFromWindow(window, kObjectClient);
    if (!object) continue;
    auto item = std::make_shared<RenderingWindow>(pane_.desktop.GetAccessibility(),
                                                  pane_.desktop.GetWindows());
    item->setChild(object, {});
    if (first) {
      explorer_.SetRoot(std::move(item));
    } else {
      explorer_.AddExtraRoot(item);
    }
    first = false;
  }
  TreeView& tree = *pane_.controls.TreeView1;
  const auto nodes = tree.Nodes();
  if (!nodes.empty()) {
    tree.SetSelectedItem(nodes.front());
    Made.Raise();
  }
  if (failed_ || nodes.size() >= 2 * windows.size() || retries_ >= kMostRetries) return;
  ++retries_;
  pane_.controls.Timer1->SetEnabled(true);
}

void AccessibilityView::Follow(const TreeNode& node) {
  ErrorsIgnored([&] {
    const auto item = std::dynamic_pointer_cast<CIAccessibleBrowser>(explorer_.GetItemObject(node));
    const AccessiblePtr object = Required(item).objIAChild;
    const AccessibleKid kid = item->m_vKid;
    access_.accSelect(object, kSelectTakeFocus, kid);
    access_.accDoDefaultAction(object, kid);
  });
}

void AccessibilityView::Say(const std::string& problem) {
  failed_ = true;
  if (!pane_.menu.mnuSideBarContent(kSideBarAccessibility).Checked()) return;
  ErrorsIgnored([&] { pane_.announcer.AddAndSay(problem); });
}

}  // namespace corvane
