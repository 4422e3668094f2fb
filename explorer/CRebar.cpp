#include "explorer/CRebar.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/handling.h"

namespace corvane {
namespace {

constexpr std::uint32_t kRebarStyle = 0x56804648;
constexpr int kFirstHeight = 60;
constexpr int kBorder = 8;

constexpr std::uint32_t kInsertMask = 0x1BF;
constexpr std::uint32_t kReadMask = 0x9BF;
constexpr std::uint32_t kBandStyle = 0x2A4;
constexpr std::uint32_t kBreakBandStyle = 0x2A5;
constexpr int kBandWidth = 10;

constexpr const char* kToolbarClass = "ToolbarWindow32";
// Sixteen-bit style words, widened with their sign.
constexpr auto kFlatListBits = static_cast<std::uint32_t>(static_cast<std::int16_t>(0x9840));
constexpr auto kFlatBits = static_cast<std::uint32_t>(static_cast<std::int16_t>(0x8840));

}  // namespace

CRebar::CRebar(Desktop& desktop) : desktop_(desktop) {}

int CRebar::Pixels(float twips) const {
  return static_cast<int>(std::lround(twips / desktop_.TwipsPerPixel()));
}

bool CRebar::Create() {
  if (parent_ == nullptr) return false;
  ErrorsIgnored(
      [&] {
        window_ = desktop_.CreateRebarWindow(*parent_, kRebarStyle, Pixels(parent_->Width()),
                                             kFirstHeight);
      },
      [&] { Move(0, 0, Pixels(parent_->Width()), kFirstHeight); },
      [&] { Required(window_).SetVisible(true); });
  return window_ != nullptr;
}

void CRebar::AddBands(const std::string& caption, int band_id, Control& child, int new_row,
                      std::optional<int> minimum_width) {
  BandInfo info;
  info.mask = kInsertMask;
  info.style = new_row == 1 ? kBreakBandStyle : kBandStyle;
  info.text = caption;
  info.width = kBandWidth;
  info.id = static_cast<std::uint32_t>(band_id);
  ErrorsIgnored(
      [&] { info.foreground = desktop_.SysColor(kColorButtonText); },
      [&] { info.background = desktop_.SysColor(kColorButtonFace); },
      [&] { info.background_bitmap = Required(image_).Picture(); },
      [&] { info.child = child.hwnd(); }, [&] { last_child_ = &child; },
      [&] {
        info.min_child_width =
            minimum_width
                ? static_cast<int>(static_cast<float>(*minimum_width) * desktop_.TwipsPerPixel())
                : Pixels(child.Width());
      },
      [&] { info.min_child_height = desktop_.GetWindows().PixelHeight(child.hwnd()); },
      [&] { Required(window_).InsertBand(-1, info); }, [&] { Required(window_).Repaint(); });
}

std::optional<std::int32_t> CRebar::GetBandId(const std::string& index) const {
  int number = 0;
  const auto [end, error] = std::from_chars(index.data(), index.data() + index.size(), number);
  if (error != std::errc() || end != index.data() + index.size()) return std::nullopt;
  BandInfo info;
  info.mask = kReadMask;
  if (!window_ || !window_->GetBandInfo(number, info)) return 0;
  return static_cast<std::int32_t>(info.id);
}

void CRebar::SetBandColors() {
  for (int i = 0; i < BandCount(); ++i) {
    BandInfo info;
    info.mask = kReadMask;
    window_->GetBandInfo(i, info);
    info.foreground = desktop_.SysColor(kColorButtonText);
    info.background = desktop_.SysColor(kColorButtonFace);
    window_->SetBandInfo(i, info);
  }
}

void CRebar::RemoveBands(int index) { Required(window_).DeleteBand(index); }

int CRebar::BandCount() const { return window_ ? window_->BandCount() : 0; }

// The chain follows first children only: that order is what the host relies on.
void CRebar::DestroyRebar() {
  if (!window_) return;
  window_->SetVisible(false);
  Windows& windows = desktop_.GetWindows();
  const WindowHandle container = parent_ != nullptr ? parent_->hwnd() : 0;
  WindowHandle child = windows.FirstChild(window_->hwnd());
  while (child != 0) {
    windows.SetParent(child, container);
    child = windows.FirstChild(child);
  }
  for (int left = window_->BandCount(); left > 0; --left) window_->DeleteBand(0);
  window_.reset();
}

void CRebar::Resize(const Control& container) {
  ErrorsIgnored([&] { Required(window_).Move(0, 0, Pixels(container.Width()), 0); },
                [&] { Required(window_).Repaint(); });
}

void CRebar::Move(int left, int top, int width, int height) {
  ErrorsIgnored([&] {
    if (window_) window_->Move(left, top, width, height);
  });
}

WindowHandle CRebar::hwnd() const { return window_ ? window_->hwnd() : 0; }

int CRebar::Heigth() const {
  if (!window_) return kBorder;
  int height = kBorder;
  for (int row = 0; row < window_->RowCount(); ++row) height += window_->RowHeight(row);
  return height;
}

void CRebar::SetMainParent(WindowHandle window) {
  if (window_) window_->SetNotifyParent(window);
}

void CRebar::TBMakeFlat(ToolbarControl& toolbar, bool flat) {
  Windows& windows = desktop_.GetWindows();
  WindowHandle inner = windows.FirstChild(toolbar.hwnd());
  while (inner != 0 && windows.ClassName(inner) != kToolbarClass)
    inner = windows.NextSibling(inner);
  windows.SetStyle(inner, windows.Style(inner) | (flat ? kFlatListBits : kFlatBits));
  toolbar.Refresh();
}

}  // namespace corvane
