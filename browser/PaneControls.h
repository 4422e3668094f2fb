#pragma once

#include <array>
#include <memory>

#include "controls/ctlText.h"
#include "platform/desktop.h"

namespace corvane {

/// Indexes of the toolbar's buttons.
enum ToolbarButton : int {
  kBack,
  kForward,
  kStop,
  kRefresh,
  kHome,
  kSearch,
  kPrint,
  kToolbarButtons
};

/// The browser pane's child controls, made in the order of the pane's design and
/// put into each other. They have no behaviour here.
struct PaneControls {
  PaneControls(Desktop& desktop, const Manner& manner);

  std::unique_ptr<ElasticFrame> ELAMain;
  std::unique_ptr<Timer> Timer1;  ///< retry of the accessibility tree's refresh
  std::unique_ptr<ElasticFrame> ELABottom;
  std::unique_ptr<ElasticFrame> ELARight;
  ctlText ctlText1;
  std::unique_ptr<ElasticFrame> ELABrowser;
  std::unique_ptr<WebBrowser> brwWebBrowser;
  std::unique_ptr<ElasticFrame> ELASideBar;
  std::unique_ptr<ElasticFrame> ELATree;
  std::unique_ptr<TreeView> TreeView1;
  std::unique_ptr<ElasticFrame> ELALinks;
  std::unique_ptr<ComboBox> cmbListLinks;
  std::unique_ptr<ElasticFrame> ELATop;
  std::unique_ptr<ComboBox> cboAddress;
  std::unique_ptr<ElasticFrame> ButtonContainer;
  std::array<std::unique_ptr<CommandButton>, kToolbarButtons> cmdToolbar;
  std::unique_ptr<Timer> timTimer;  ///< the page-reading tick

  /// The button at `index`; RunTimeError outside the array.
  CommandButton& Toolbar(int index) const;
};

}  // namespace corvane
