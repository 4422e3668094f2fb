#pragma once

#include <gio/gio.h>

namespace corvane::desktop {

/// Has the engine draw pages by the processor alone, so that this program never loads
/// the driver of a graphics device: that takes a third of the time until the first
/// window takes keys, and a third of the memory. Pages may still use one for pictures
/// in space. To be called before there are threads, as it changes the environment.
void DrawByProcessor();

/// Has programs that are started in that context know nothing of it.
void ForgetDrawing(GAppLaunchContext* context);

}  // namespace corvane::desktop
