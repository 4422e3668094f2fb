#pragma once

namespace corvane::desktop {

/// Forgets an accessibility bus named in the environment that cannot be reached,
/// so that the session's own is used instead: the engine and the toolkit's bridge
/// take the address as it stands, and the engine ends the program over it. To be
/// called before either starts.
void ForgetStaleBus();

}  // namespace corvane::desktop
