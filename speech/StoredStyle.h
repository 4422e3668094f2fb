#pragma once

#include "platform/desktop.h"
#include "speech/SpeechStyle.h"

namespace corvane {

/// The rate and pitch that the user has chosen last: for what is said where there may be no
/// character that knows them.
SpeechStyle StoredStyle(Desktop& desktop);

}  // namespace corvane
