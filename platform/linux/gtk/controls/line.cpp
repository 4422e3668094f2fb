#include "platform/linux/gtk/controls/line.h"

namespace corvane::desktop {
namespace {

constexpr int kMargin = 4;  // pixels

}  // namespace

LineControl::LineControl(const std::string& name, WindowTable& windows) {
  line_.set_margin_top(kMargin);
  line_.set_margin_bottom(kMargin);
  line_.show();
  Bind(line_, line_, name, "Line", windows);
}

}  // namespace corvane::desktop
