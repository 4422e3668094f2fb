#include "base/manner.h"

#include <array>

namespace corvane {
namespace {

constexpr const char* kWindow = "Corvane";
constexpr const char* kPane = "pnlBrowser";
constexpr const char* kOff = "False";
constexpr const char* kOn = "True";

// One choice a row; docs/settings.md has the same rows.
constexpr std::array kChoices = {
    MannerChoice{kPane, "WholeForms", "Announce every field of a form, also beside buttons",
                 &Manner::whole_forms, kOff, kOn, false, true},
    MannerChoice{kWindow, "KeyWords", "Name punctuation and special keys by words",
                 &Manner::key_words, kOff, kOn, false, true},
    MannerChoice{kPane, "KeepPlace", "Keep my place in the text while something is announced",
                 &Manner::keep_place, kOff, kOn, false, true},
    MannerChoice{kPane, "Passwords", "Passwords are", &Manner::hide_passwords, "spoken", "hidden",
                 false, false},
    MannerChoice{kWindow, "WholeScreen", "The first window fills the screen", &Manner::whole_screen,
                 kOff, kOn, false, true},
};

Manner WithColumn(bool MannerChoice::*column) {
  Manner manner;
  for (const MannerChoice& choice : kChoices) manner.*choice.member = choice.*column;
  return manner;
}

}  // namespace

std::span<const MannerChoice> MannerChoices() { return kChoices; }

Manner EstablishedManner() { return WithColumn(&MannerChoice::established); }

Manner TodaysManner() {
  Manner manner = WithColumn(&MannerChoice::today);
  manner.today = true;
  return manner;
}

}  // namespace corvane
