#pragma once

#include "platform/control.h"

namespace corvane {

/// A line that divides what is above it from what is below. It never has the
/// focus.
class Line : public Control {};

}  // namespace corvane
