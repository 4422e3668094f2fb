#include "platform/linux/web/drawing.h"

#include <glib.h>

namespace corvane::desktop {

// The engine has a setting of the same meaning, but has looked for the device before
// it is asked.
void DrawByProcessor() { g_setenv(kByProcessor, "1", FALSE); }

}  // namespace corvane::desktop
