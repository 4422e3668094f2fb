#include "platform/linux/gtk/dialogs/alert_window.h"

#include <utility>

namespace corvane::desktop {

AlertWindow::AlertWindow(WindowTable& windows, const std::string& caption, const std::string& text,
                         MessageBox::Icon icon, Speaker speak, std::function<void()> done)
    : dialog_(windows, std::move(speak),
              {.title = caption, .text = text, .buttons = {"OK"}, .icon = icon, .is_message = true},
              [done = std::move(done)](const DialogAnswer&) { done(); }) {}

}  // namespace corvane::desktop
