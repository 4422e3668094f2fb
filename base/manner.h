#pragma once

#include <span>

namespace corvane {

/// How the program behaves where its established way and the way that people
/// expect of a program today part. The members' own values are the established
/// way. Read by whoever acts on it, never changed there; it changes while the
/// program runs when the user chooses otherwise.
struct Manner {
  /// Today's way in all that has no choice of its own.
  bool today = false;
  /// Every field of every form is announced; an element that has no announcer
  /// costs the others nothing. False: it ends the walk with a message box.
  bool whole_forms = false;
  /// Keys beside letters and digits are named by words. False: by the character
  /// whose code is the key code.
  bool key_words = false;
  /// What is announced leaves the reader's place in the text pane alone. False:
  /// the caret goes to the end.
  bool keep_place = false;
  /// Passwords are heard as "star" for each character and are written nowhere.
  /// False: they are spoken.
  bool hide_passwords = false;
  /// While no place is stored windows take all of the screen that there is for them.
  bool whole_screen = false;
};

/// One choice of the manner, as the settings store keeps it and a dialog shows it.
struct MannerChoice {
  const char* application;  ///< in the settings store
  const char* key;
  const char* label;  ///< in plain words, for a dialog
  bool Manner::*member;
  const char* off;  ///< how the store writes it
  const char* on;
  bool established;  ///< the value that goes with Manner 0
  bool today;        ///< and with Manner 1
};

/// All choices but the first, `Manner` itself, which decides those that the user
/// has not made.
std::span<const MannerChoice> MannerChoices();

/// Every choice as it goes with Manner 0, or with Manner 1.
Manner EstablishedManner();
Manner TodaysManner();

/// The established manner, for what is used without any choice.
inline constexpr Manner kEstablishedManner{};

}  // namespace corvane
