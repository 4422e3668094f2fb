#include "platform/linux/gtk/alert_window.h"

#include <utility>

namespace corvane::desktop {

AlertWindow::AlertWindow(WindowTable& windows, const std::string& caption, const std::string& text,
                         MessageBox::Icon icon, std::function<void()> done)
    : dialog_(windows, nullptr, {.title = caption, .text = text, .buttons = {"OK"}, .icon = icon},
              [done = std::move(done)](const DialogAnswer&) { done(); }) {}

}  // namespace corvane::desktop
