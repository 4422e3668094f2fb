#include "speech/StoredStyle.h"

#include <string>

#include "base/handling.h"
#include "base/number.h"
#include "speech/StoredChoice.h"

namespace corvane {
namespace {

constexpr int kMiddle = 2;  // of the five steps of the rate and pitch menus
constexpr int kLast = 4;

}  // namespace

SpeechStyle StoredStyle(Desktop& desktop) {
  const auto step = [&desktop](const char* key) {
    int chosen = kMiddle;
    ErrorsIgnored([&] {
      chosen =
          number::to_integer(StoredChoice(desktop.GetSettings(), key, std::to_string(kMiddle)));
    });
    return chosen >= 0 && chosen <= kLast ? chosen : kMiddle;
  };
  return {PitchOf(step("Pitch")), SpeedOf(step("Rate"))};
}

}  // namespace corvane
