#pragma once

#include <cstdint>

#include "browser/LinksList.h"
#include "browser/Navigation.h"
#include "browser/PaneContext.h"
#include "browser/SideBar.h"

namespace corvane {

/// The page-reading tick: keeps the user informed while a page loads and reads
/// it once it is complete.
class PageReader {
 public:
  PageReader(PaneContext& pane, Navigation& navigation, LinksList& links, SideBar& side_bar);

 private:
  void timTimer_Timer();
  void ReadPage();
  void StillLoading();
  void ReadTitleAndText(const HTMLDocument& document);
  void AutoFocus();

  PaneContext& pane_;
  Navigation& navigation_;
  LinksList& links_;
  SideBar& side_bar_;
  bool firstTick_ = false;
  std::int16_t busyTicks_ = 0;
  int stopIcon_;
  unsigned reading_ = 0;  // counts readings: a newer one makes an older one stop
  Connections connections_;
};

}  // namespace corvane
