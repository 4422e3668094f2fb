#include "browser/PaneControls.h"

#include <string>

#include "base/error.h"
#include "browser/Addresses.h"

namespace corvane {
namespace {

constexpr int kAccessibilityRetry = 10;  // milliseconds
constexpr int kReadingTick = 600;        // milliseconds

constexpr std::array<const char*, kToolbarButtons> kCaptions = {
    "&Back", "For&ward", "S&top", "&Refresh", "&Home", "S&earch", "&Print"};

}  // namespace

PaneControls::PaneControls(Desktop& desktop, const Manner& manner)
    : ELAMain(desktop.CreateElasticFrame("ELAMain")),
      Timer1(desktop.CreateTimer()),
      ELABottom(desktop.CreateElasticFrame("ELABottom")),
      ELARight(desktop.CreateElasticFrame("ELARight")),
      ctlText1(desktop, "ctlText1", manner),
      ELABrowser(desktop.CreateElasticFrame("ELABrowser")),
      brwWebBrowser(desktop.CreateWebBrowser("brwWebBrowser")),
      ELASideBar(desktop.CreateElasticFrame("ELASideBar")),
      ELATree(desktop.CreateElasticFrame("ELATree")),
      TreeView1(desktop.CreateTreeView("TreeView1")),
      ELALinks(desktop.CreateElasticFrame("ELALinks")),
      cmbListLinks(desktop.CreateComboBox("cmbListLinks", ComboBox::Style::Simple)),
      ELATop(desktop.CreateElasticFrame("ELATop")),
      cboAddress(desktop.CreateComboBox("cboAddress", ComboBox::Style::DropDown)),
      ButtonContainer(desktop.CreateElasticFrame("ButtonContainer")),
      timTimer(desktop.CreateTimer()) {
  Timer1->SetInterval(kAccessibilityRetry);
  timTimer->SetInterval(kReadingTick);

  for (int i = 0; i < kToolbarButtons; ++i) {
    auto& button = cmdToolbar[static_cast<std::size_t>(i)];
    button = desktop.CreateCommandButton("cmdToolbar" + std::to_string(i));
    button->SetCaption(kCaptions[static_cast<std::size_t>(i)]);
    ButtonContainer->Add(*button);
  }
  cboAddress->AddItem(kMakerHomePage);
  cboAddress->AddItem(kVendorHomePage);

  cboAddress->SetAccessibleName("Address");
  cmbListLinks->SetAccessibleName("Links");
  TreeView1->SetAccessibleName("Sidebar");
  ctlText1.Text1().SetAccessibleName("Text");

  ELABrowser->Add(*brwWebBrowser);
  ELATree->Add(*TreeView1);
  ELALinks->Add(*cmbListLinks);
  ELASideBar->Add(*ELATree);
  ELASideBar->Add(*ELALinks);
  ELARight->Add(*ELABrowser);
  ELARight->Add(ctlText1.Frame());
  ELABottom->Add(*ELASideBar);
  ELABottom->Add(*ELARight);
  ELAMain->Add(*ELATop);
  ELAMain->Add(*ELABottom);
}

CommandButton& PaneControls::Toolbar(int index) const {
  if (index < 0 || index >= kToolbarButtons) {
    throw RunTimeError(kErrControlArrayElement, "cmdToolbar",
                       "Control array element '" + std::to_string(index) + "' doesn't exist");
  }
  return *cmdToolbar[static_cast<std::size_t>(index)];
}

}  // namespace corvane
