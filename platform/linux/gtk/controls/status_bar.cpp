#include "platform/linux/gtk/controls/status_bar.h"

#include "base/error.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr int kMostPanels = 16;

}  // namespace

StatusBarControl::StatusBarControl(const std::string& name, WindowTable& windows)
    : box_(Gtk::ORIENTATION_HORIZONTAL) {
  Bind(box_, box_, name, "StatusBar", windows, [this] { return PanelText(1); });
  SetPanelText(1, "");
}

std::string StatusBarControl::PanelText(int panel) const {
  if (panel < 1 || panel > static_cast<int>(panels_.size())) return {};
  return panels_[static_cast<std::size_t>(panel) - 1]->text;
}

void StatusBarControl::SetPanelText(int panel, const std::string& text) {
  if (panel < 1 || panel > kMostPanels) {
    throw RunTimeError(kErrSubscriptOutOfRange, "", "Subscript out of range");
  }
  while (static_cast<int>(panels_.size()) < panel) {
    panels_.push_back(std::make_unique<Panel>());
    auto& bar = panels_.back()->bar;
    bar.set_margin_top(0);
    bar.set_margin_bottom(0);
    box_.pack_start(bar, true, true);
    bar.show();
  }
  auto& shown = *panels_[static_cast<std::size_t>(panel) - 1];
  shown.text = text;
  shown.bar.remove_all_messages();
  shown.bar.push(Valid(OnOneLine(text)));
}

}  // namespace corvane::desktop
