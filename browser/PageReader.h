#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "browser/AutoFocus.h"
#include "browser/LinksList.h"
#include "browser/Navigation.h"
#include "browser/PageElements.h"
#include "browser/PaneContext.h"
#include "browser/SideBar.h"

namespace corvane {

/// The page-reading tick: keeps the user informed while a page loads and reads
/// it once it is complete.
class PageReader {
 public:
  PageReader(PaneContext& pane, Navigation& navigation, PageElements& elements, LinksList& links,
             SideBar& side_bar);

  /// Speaks the title of the page that was read last, or else its name or address, for a user who
  /// could not hear it then; silent before the first page.
  void SayTitle();
  /// Gives up a reading that is under way and reads nothing any more.
  void Stop();

 private:
  void timTimer_Timer();
  struct Reading {};
  using Current = std::function<bool()>;  // whether a reading is still the present one

  void ReadPage();
  void ReadOn(const HTMLDocumentPtr& document, const Current& current);
  void StillLoading();
  void KeepAddress(const std::string& address);
  void ReadTitleAndText(const HTMLDocument& document, const std::function<void()>& said);

  PaneContext& pane_;
  Navigation& navigation_;
  PageElements& elements_;
  LinksList& links_;
  SideBar& side_bar_;
  AutoFocus auto_focus_;
  bool firstTick_ = false;
  std::int16_t busyTicks_ = 0;
  int stopIcon_;
  std::string title_;                 // spoken, of the page that was read last
  std::shared_ptr<Reading> reading_;  // the present one; a newer one makes it stop
  Connections connections_;
};

}  // namespace corvane
