#pragma once

#include "browser/PaneContext.h"
#include "browser/PaneSettings.h"
#include "explorer/CRebar.h"

namespace corvane {

/// Arranges the pane: frames, splitters with their remembered ratios, the rebar
/// with the toolbar and the address box.
class PaneLayout {
 public:
  PaneLayout(PaneContext& pane, PaneSettings& settings);

  /// Fixes the frames' styles and nesting behaviour.
  void SetElastics();
  /// Gives each toolbar button its icon.
  void PopulateButtons();
  /// Makes the rebar with its two bands.
  void CreateRebar();
  /// Shows (false) or hides (true) the button row.
  void HideButtonToolBar(bool hide);
  /// Leads the user to the next splitter, or to the one before.
  void NextSplitter() { GoToSplitter(ElasticFrame::Way::Forward); }
  void PreviousSplitter() { GoToSplitter(ElasticFrame::Way::Back); }
  /// The side bar column's place follows the side bar choice "None".
  void ShowSideBar(bool show);

  void UserControl_Show();
  void UserControl_Resize();
  void DestroyRebar();
  void ReleaseRebar();

 private:
  void GoToSplitter(ElasticFrame::Way way) { pane_.controls.ELAMain->GoToSplitter(way); }
  void Speak(ElasticFrame& frame, const char* splitter);
  void ELATop_RealignFrame();
  void ELABottom_RealignFrame();
  void ELABottom_ResizeChildren();
  void ELARight_RealignFrame();
  void ELARight_ResizeChildren();
  void KeepRatio(float& ratio, float part, float whole, const char* key);
  void AddButtonsBand();
  void AddAddressBand();
  bool SideBarHidden() const;

  PaneContext& pane_;
  PaneSettings& settings_;
  std::unique_ptr<CRebar> oRebar_;
  bool blnShown_ = false;
  bool blnResized_ = false;
  Connections connections_;
};

}  // namespace corvane
