#include "browser/PaneLayout.h"

#include <string>

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/errors_shown.h"

namespace corvane {
namespace {

using Align = ElasticFrame::Align;
using Layout = ElasticFrame::Layout;

constexpr int kButtonsBand = 1;
constexpr int kAddressBand = 2;

}  // namespace

PaneLayout::PaneLayout(PaneContext& pane, PaneSettings& settings)
    : pane_(pane), settings_(settings) {
  PaneControls& c = pane_.controls;
  connections_ += c.ELAMain->RealignFrame.Connect([this] { UserControl_Resize(); });
  connections_ += c.ELATop->RealignFrame.Connect([this] { ELATop_RealignFrame(); });
  connections_ += c.ELABottom->RealignFrame.Connect([this] { ELABottom_RealignFrame(); });
  connections_ += c.ELABottom->ResizeChildren.Connect([this] { ELABottom_ResizeChildren(); });
  connections_ += c.ELARight->RealignFrame.Connect([this] { ELARight_RealignFrame(); });
  Speak(*c.ELABottom, "Splitter between left and right");
  Speak(*c.ELARight, "Splitter between top and bottom");
  connections_ += c.ELARight->ResizeChildren.Connect([this] { ELARight_ResizeChildren(); });
}

void PaneLayout::Speak(ElasticFrame& frame, const char* splitter) {
  connections_ += frame.SplitterFocus.Connect([this, splitter] { pane_.announcer.Say(splitter); });
  connections_ += frame.SplitterStep.Connect(
      [this](int share) { pane_.announcer.Say(std::to_string(share) + " percent"); });
}

void PaneLayout::SetElastics() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "SetElastics Error: ", [&] {
    PaneControls& c = pane_.controls;
    for (ElasticFrame* frame : {c.ELATop.get(), c.ELABrowser.get(), c.ELALinks.get()}) {
      frame->SetLayout(Layout::Stack);
    }
    c.ELAMain->SetLayout(Layout::Above);
    c.ELATree->SetAlign(Align::Fill);
    c.ELABottom->SetAlign(Align::Fill);
    c.ELABottom->SetLayout(Layout::SideBySide);
    c.ELABottom->SetSplitter(true);
    c.ELASideBar->SetLayout(Layout::Above);
    c.ELARight->SetLayout(Layout::Above);
    c.ELARight->SetSplitter(true);
    c.ELATop->SetAlign(Align::Top);
    c.ButtonContainer->SetLayout(Layout::SideBySide);
  });
}

void PaneLayout::PopulateButtons() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "PopulateButtons Error: ", [&] {
    for (int index = 0; index < kToolbarButtons; ++index) {
      pane_.desktop.DoEvents();
      CommandButton& button = pane_.controls.Toolbar(index);
      button.SetPicture(index + 1);  // pictures count from 1
      // Alt with a letter opens menus. A letter that is no menu's must not make the
      // user leave the page by a slip.
      if (pane_.manner.today) button.SetCaption(text::replace_all(button.Caption(), "&", ""));
    }
  });
}

void PaneLayout::CreateRebar() {
  ErrorsIgnored([&] { oRebar_ = std::make_unique<CRebar>(pane_.desktop); },
                [&] { Required(oRebar_).SetParent(pane_.controls.ELATop.get()); },
                [&] { Required(oRebar_).Create(); }, [&] { AddButtonsBand(); },
                [&] { AddAddressBand(); });
}

void PaneLayout::AddButtonsBand() {
  Required(oRebar_).AddBands("", kButtonsBand, *pane_.controls.ButtonContainer, 0);
}

void PaneLayout::AddAddressBand() {
  Required(oRebar_).AddBands("Address", kAddressBand, *pane_.controls.cboAddress, 0);
}

void PaneLayout::HideButtonToolBar(bool hide) {
  PaneControls& c = pane_.controls;
  Windows& windows = pane_.desktop.GetWindows();
  if (!oRebar_) CreateRebar();
  const auto remove_all = [&] {
    for (int left = Required(oRebar_).BandCount(); left > 0; --left) oRebar_->RemoveBands(0);
  };
  ErrorsIgnored([&] { windows.LockUpdate(c.ELATop->hwnd(), true); });
  if (hide) {
    ErrorsIgnored(
        remove_all, [&] { AddAddressBand(); }, [&] { c.ButtonContainer->SetVisible(false); });
  } else {
    ErrorsIgnored([&] { c.ButtonContainer->SetVisible(true); }, remove_all,
                  [&] { AddButtonsBand(); }, [&] { AddAddressBand(); });
  }
  ErrorsIgnored([&] { windows.LockUpdate(c.ELATop->hwnd(), false); });
}

bool PaneLayout::SideBarHidden() const { return !pane_.Shows(kAreaSideBar); }

void PaneLayout::ShowSideBar(bool show) {
  PaneControls& c = pane_.controls;
  ErrorsIgnored([&] { c.ELASideBar->SetAlign(show ? Align::Fill : Align::None); },
                [&] { c.ELABottom->SetSplitter(show); }, [&] { c.ELABottom->Realign(); });
}

void PaneLayout::UserControl_Show() {
  PaneControls& c = pane_.controls;
  ErrorsIgnored([&] { c.ELAMain->SetAlign(Align::Fill); });
  if (blnShown_) return;
  blnShown_ = true;
  ErrorsIgnored([&] { c.ELAMain->SetVisible(true); }, [&] { pane_.StartReading(); },
                [&] { c.timTimer->TickSoon(); });  // the first page need not wait
}

void PaneLayout::UserControl_Resize() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "UserControlResize Error: ", [&] {
    if (!oRebar_) return;  // the first layouts may come before the rebar
    PaneControls& c = pane_.controls;
    c.ELATop->SetHeight(static_cast<float>(oRebar_->Heigth()) * pane_.desktop.TwipsPerPixel());
    if (blnResized_) return;
    blnResized_ = true;
    ELATop_RealignFrame();
    c.ELATop->SetAlign(Align::Top);
  });
}

void PaneLayout::ELATop_RealignFrame() {
  ErrorsIgnored([&] { Required(oRebar_).Resize(*pane_.controls.ELATop); });
}

void PaneLayout::ELABottom_RealignFrame() {
  ErrorsIgnored([&] {
    if (SideBarHidden()) return;
    PaneControls& c = pane_.controls;
    const float width = c.ELABottom->Width();
    const float side_bar = pane_.state.sngSplitter * width;
    c.ELASideBar->SetWidth(side_bar);
    c.ELARight->SetWidth(width - side_bar);
  });
}

void PaneLayout::ELABottom_ResizeChildren() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "ELABottomResizeChildren Error: ", [&] {
    if (SideBarHidden()) return;
    const PaneControls& c = pane_.controls;
    KeepRatio(pane_.state.sngSplitter, c.ELASideBar->Width(), c.ELABottom->Width(), "Splitter");
  });
}

void PaneLayout::ELARight_RealignFrame() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "ELARightRealignFrame Error: ", [&] {
    PaneControls& c = pane_.controls;
    const float height = c.ELARight->Height();
    const float text = pane_.state.sngSplitterH * height;
    c.ctlText1.Frame().SetHeight(text);
    c.ELABrowser->SetHeight(height - text);
  });
}

void PaneLayout::ELARight_ResizeChildren() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "ELARightResizeChildren Error: ", [&] {
    PaneControls& c = pane_.controls;
    KeepRatio(pane_.state.sngSplitterH, c.ctlText1.Frame().Height(), c.ELARight->Height(),
              "SplitterH");
  });
}

// A drag of less than a hundredth is kept but not worth a write.
void PaneLayout::KeepRatio(float& ratio, float part, float whole, const char* key) {
  if (whole <= 0) return;
  const float now = part / whole;
  const bool changed = number::two_decimals(now) != number::two_decimals(ratio);
  ratio = now;
  if (changed) settings_.Save(key, number::from_single(now));
}

void PaneLayout::DestroyRebar() {
  ErrorsIgnored([&] { Required(oRebar_).DestroyRebar(); });
}

void PaneLayout::ReleaseRebar() { oRebar_.reset(); }

}  // namespace corvane
