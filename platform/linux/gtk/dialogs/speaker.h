#pragma once

#include <functional>
#include <string>

extern "C" {
typedef struct _GtkWindow GtkWindow;
}

namespace corvane::desktop {

/// Speaks a text for a dialog that is on the screen.
using Speaker = std::function<void(const std::string& text, GtkWindow* dialog)>;

}  // namespace corvane::desktop
