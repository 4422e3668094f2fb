#pragma once

#include <gio/gio.h>

#include "web/Problem.h"

namespace corvane::desktop {

/// What the engine's error means.
LoadFailure FailureOf(const GError& error);
/// The gravest of the faults.
CertificateFault FaultOf(GTlsCertificateFlags faults);

}  // namespace corvane::desktop
