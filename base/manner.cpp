#include "base/manner.h"

#include <array>
#include <type_traits>

namespace corvane {
namespace {

using Text = std::string_view;

constexpr Text kWindow = "Corvane";
constexpr Text kPane = "pnlBrowser";
constexpr std::array<Text, 2> kSwitch = {"False", "True"};
constexpr std::array<Text, 2> kPasswords = {"spoken", "hidden"};
constexpr std::array<Text, 3> kLiveWords = {"all", "important", "none"};

/// A choice that is kept in the given member of Manner.
template <auto member>
constexpr MannerChoice Choice(Text application, Text key, Text label, std::span<const Text> values,
                              std::size_t established, std::size_t today) {
  return {application,
          key,
          label,
          values,
          established,
          today,
          [](const Manner& manner) { return static_cast<std::size_t>(manner.*member); },
          [](Manner& manner, std::size_t value) {
            using Value = std::remove_cvref_t<decltype(manner.*member)>;
            manner.*member = static_cast<Value>(value);
          }};
}

// One choice a row; docs/settings.md has the same rows.
constexpr std::array kChoices = {
    Choice<&Manner::whole_forms>(
        kPane, "WholeForms", "Announce every field of a form, also beside buttons", kSwitch, 0, 1),
    Choice<&Manner::full_sentences>(kPane, "FullSentences",
                                    "Say names, roles, states and groups of a page's elements",
                                    kSwitch, 0, 1),
    Choice<&Manner::field_names>(kPane, "FieldNames", "Say a field's internal name, too", kSwitch,
                                 1, 0),
    Choice<&Manner::field_caret>(kPane, "FieldCaret",
                                 "Say the character, word or line that the caret reaches", kSwitch,
                                 0, 1),
    Choice<&Manner::text_kinds>(
        kPane, "TextKinds", "Say what headings, links, lists in the text pane are", kSwitch, 0, 1),
    Choice<&Manner::quick_keys>(kPane, "QuickKeys",
                                "Letters lead through the page in the text pane", kSwitch, 0, 1),
    Choice<&Manner::more_structure>(kPane, "MoreStructure",
                                    "Page structure has headings, landmarks, tables, too", kSwitch,
                                    0, 1),
    Choice<&Manner::live_words>(kPane, "LiveWords", "Live words of pages that are said", kLiveWords,
                                2, 0),
    Choice<&Manner::key_words>(kWindow, "KeyWords", "Name punctuation and special keys by words",
                               kSwitch, 0, 1),
    Choice<&Manner::keep_place>(kPane, "KeepPlace",
                                "Keep my place in the text while something is announced", kSwitch,
                                0, 1),
    Choice<&Manner::languages>(kWindow, "Languages", "Speak each language in its own voice",
                               kSwitch, 0, 1),
    Choice<&Manner::own_voice>(kWindow, "OwnVoice",
                               "Questions and warnings of the program have a voice of their own",
                               kSwitch, 0, 1),
    Choice<&Manner::hold_sound>(kWindow, "HoldSound",
                                "Pages begin no sound by themselves, and are low behind speech",
                                kSwitch, 0, 1),
    Choice<&Manner::hide_passwords>(kPane, "Passwords", "Passwords are", kPasswords, 0, 0),
    Choice<&Manner::whole_screen>(
        kWindow, "WholeScreen", "Windows fill the screen while no place is stored", kSwitch, 0, 1),
};

Manner WithColumn(std::size_t MannerChoice::*column) {
  Manner manner;
  for (const MannerChoice& choice : kChoices) choice.set(manner, choice.*column);
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
