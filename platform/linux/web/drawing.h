#pragma once

namespace corvane::desktop {

/// The variable of the environment that says so to the engine. Programs that this one
/// starts are to do as they like.
inline constexpr const char* kByProcessor = "WEBKIT_DISABLE_COMPOSITING_MODE";

/// Has the engine draw pages by the processor alone, so that it never looks for a
/// graphics device: loading that device's driver takes a third of the time until the
/// first window is there, and some threads and memory for good. To be called before
/// there are threads, as it changes the environment.
void DrawByProcessor();

}  // namespace corvane::desktop
