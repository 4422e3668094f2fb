#include "browser/PaneMenu.h"

namespace corvane {

PaneMenu::PaneMenu(Desktop& desktop) : menu_(desktop.CreateMenu()) {
  MenuItem& mnuMain = menu_->Add("Main Menu");
  mnuOptions.AppendAll(mnuMain, {"Side&Bar", "&Text History", "&Home", "Auto&Focus",
                                 "Enable &Status Change Feedback"});
  mnuSideBarContent.AppendAll(mnuOptions(0), {"None", "-", "Favorites", "History", "Page Structure",
                                              "Accessibility Browser"});
  mnuTextHistory.AppendAll(mnuOptions(1), {"Clear with New Page", "Never Clear"});
  mnuHome.AppendAll(mnuOptions(2),
                    {"None", "-", "Use Explorer's", "Use Corvane's", "Last one Opened"});
  own_focus_.AppendAll(mnuOptions(3), {"None", "-", "SideBar", "WebBrowser", "Text Box"});
}

}  // namespace corvane
