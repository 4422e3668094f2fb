#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace corvane {

/// Which of a page's own live words are said.
enum class LiveWordsHeard { All, Important, None };

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
  /// Elements of a page are said with all that there is to them: name, role,
  /// states, place, the groups that the focus enters. False: the established
  /// sentences alone.
  bool full_sentences = false;
  /// A field's internal name is said, too. False: only where nothing else names it.
  bool field_names = true;
  /// In a field what is heard is what the caret reaches: a character, word, line.
  /// False: the characters that it crosses.
  bool field_caret = false;
  /// A line of the text pane is said with what begins on it: headings, links, lists.
  /// False: a line is its text.
  bool text_kinds = false;
  /// Letters lead through the page's text in the text pane. False: they write there.
  bool quick_keys = false;
  /// The page's structure in the side bar has headings, landmarks and tables, too.
  bool more_structure = false;
  /// Which words are heard that a page says by itself.
  LiveWordsHeard live_words = LiveWordsHeard::None;
  /// Keys beside letters and digits are named by words. False: by the character
  /// whose code is the key code.
  bool key_words = false;
  /// What is announced leaves the reader's place in the text pane alone. False:
  /// the caret goes to the end.
  bool keep_place = false;
  /// What is said is spoken in its language, as its page or its letters tell it.
  /// False: in one voice.
  bool languages = false;
  /// What the program asks and warns of is spoken by a variant of the voice that no
  /// page's words have. False: by the same voice.
  bool own_voice = false;
  /// Pages make no sound before the user has done something there, and are low while
  /// something is said. False: they sound as they like.
  bool hold_sound = false;
  /// Passwords are heard as "star" for each character and are written nowhere.
  /// False: they are spoken.
  bool hide_passwords = false;
  /// While no place is stored windows take all of the screen that there is for them.
  bool whole_screen = false;
};

/// One choice of the manner, as the settings store keeps it and a dialog shows it.
struct MannerChoice {
  std::string_view application;  ///< in the settings store
  std::string_view key;
  std::string_view label;  ///< in plain words, for a dialog
  /// How the store writes each value; "False" and "True" for a switch.
  std::span<const std::string_view> values;
  std::size_t established;  ///< the value that goes with Manner 0
  std::size_t today;        ///< and with Manner 1
  std::size_t (*get)(const Manner&);
  void (*set)(Manner&, std::size_t value);

  bool IsSwitch() const { return values.front() == "False"; }
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
