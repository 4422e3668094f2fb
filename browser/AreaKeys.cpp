#include "browser/AreaKeys.h"

#include <algorithm>
#include <array>

#include "speech/KeyName.h"

namespace corvane {
namespace {

constexpr unsigned In(int area) { return 1U << static_cast<unsigned>(area); }

constexpr unsigned kAddress = In(kAreaAddress);
constexpr unsigned kToolbar = In(kAreaToolbar);
constexpr unsigned kTree = In(kAreaSideBar);
constexpr unsigned kLinks = In(kAreaLinks);
constexpr unsigned kPage = In(kAreaPage);
constexpr unsigned kText = In(kAreaText);
constexpr unsigned kFields = kAddress | kText;  // where characters can be written
constexpr unsigned kLists = kTree | kLinks;
constexpr unsigned kEverywhere = In(kPaneAreas) - 1;

constexpr int kKeySpace = 32;
constexpr int kKeyPageUp = 33;
constexpr int kKeyPageDown = 34;
constexpr int kKeyF2 = 113;
constexpr int kKeyF10 = 121;

constexpr auto kKeys = std::to_array<AreaKey>({
    {kAddress, kKeyReturn, 0, "opens the address"},
    {kAddress, kKeyUp, 0, "chooses the address above in the list"},
    {kAddress, kKeyDown, 0, "chooses the address below in the list"},
    {kAddress, kKeyF4, 0, "opens the list of earlier addresses"},
    {kAddress, kKeyDown, kAltMask, "opens the list of earlier addresses"},
    {kAddress, kKeyEscape, 0, "takes back what was typed"},

    {kToolbar, kKeyReturn, 0, "presses the button"},
    {kToolbar, kKeySpace, 0, "presses the button"},
    {kToolbar, kKeyLeft, 0, "goes to the button before"},
    {kToolbar, kKeyRight, 0, "goes to the next button"},

    {kTree, kKeyUp, 0, "goes to the item above"},
    {kTree, kKeyDown, 0, "goes to the item below"},
    {kTree, kKeyLeft, 0, "closes the item, or goes to the one that it is in"},
    {kTree, kKeyRight, 0, "opens the item, or goes into it"},
    {kTree, kKeyHome, 0, "goes to the first item"},
    {kTree, kKeyEnd, 0, "goes to the last item"},
    {kTree, kKeyReturn, 0, "follows the item"},
    {kTree, kKeyF1, 0, "says the address behind the item"},
    {kTree, kKeyEscape, 0, "makes the tree anew"},
    {kTree, kKeyF2, 0, "gives a favorite another name"},
    {kTree, kKeyDelete, kCtrlMask, "pressed twice removes a favorite or a visited page"},
    {kTree, 'I', kCtrlMask, "takes over a file of bookmarks"},

    {kLinks, kKeyUp, 0, "chooses the link above"},
    {kLinks, kKeyDown, 0, "chooses the link below"},
    {kLinks, kKeyReturn, 0, "follows the link"},

    {kPage, kKeyTab, 0, "goes to the next link, field or button"},
    {kPage, kKeyTab, kShiftMask, "goes to the link, field or button before"},
    {kPage, kKeyReturn, 0, "follows the link, or presses the button"},
    {kPage, kKeySpace, 0, "presses the button, checks the box, or scrolls"},
    {kPage, kKeyEscape, 0, "leads to this place in the text"},
    {kPage, kKeyUp, 0, "scrolls up, or moves in a field or list"},
    {kPage, kKeyDown, 0, "scrolls down, or moves in a field or list"},
    {kPage, kKeyLeft, 0, "scrolls left, or moves in a field"},
    {kPage, kKeyRight, 0, "scrolls right, or moves in a field"},

    {kText, kKeyUp, 0, "reads the line above"},
    {kText, kKeyDown, 0, "reads the next line"},
    {kText, kKeyUp, kCtrlMask, "goes to the paragraph above"},
    {kText, kKeyDown, kCtrlMask, "goes to the next paragraph"},
    {kText, kKeyPageUp, 0, "goes a page up"},
    {kText, kKeyPageDown, 0, "goes a page down"},
    {kText, kKeyHome, kCtrlMask, "goes to the beginning of the text"},
    {kText, kKeyEnd, kCtrlMask, "goes to the end of the text"},

    {kFields, kKeyLeft, 0, "goes a character back"},
    {kFields, kKeyRight, 0, "goes a character on"},
    {kFields, kKeyLeft, kCtrlMask, "goes a word back"},
    {kFields, kKeyRight, kCtrlMask, "goes a word on"},
    {kFields, kKeyHome, 0, "goes to the beginning of the line"},
    {kFields, kKeyEnd, 0, "goes to the end of the line"},
    {kFields, kKeyBackspace, 0, "removes the character before the caret"},
    {kFields, kKeyDelete, 0, "removes the character behind the caret"},
    {kFields | kPage, 'A', kCtrlMask, "selects all"},
    {kFields | kPage, 'C', kCtrlMask, "copies what is selected"},
    {kFields | kPage, 'X', kCtrlMask, "cuts what is selected"},
    {kFields | kPage, 'V', kCtrlMask, "pastes"},

    {kEverywhere, kKeyTab, 0, "goes to the next part of the window"},
    {kEverywhere, kKeyTab, kShiftMask, "goes to the part of the window before"},
    {kEverywhere, 'D', kCtrlMask, "keeps the page in Favorites"},
    {kEverywhere, kKeyF10, 0, "goes to the menu bar"},
    {kEverywhere, kKeyF4, kAltMask, "closes the window"},
    {kEverywhere, kKeyControl, 0, "silences what is being said"},
});

}  // namespace

std::span<const AreaKey> AllAreaKeys() { return kKeys; }

std::optional<std::string> WhatKeyOfAreaDoes(int area, const KeyEvent& key) {
  const auto* found = std::find_if(kKeys.begin(), kKeys.end(), [&](const AreaKey& each) {
    return (each.areas & In(area)) != 0 && each.KeyCode == key.KeyCode && each.Shift == key.Shift;
  });
  if (found != kKeys.end()) return found->does;
  const bool writes = (key.Shift & (kCtrlMask | kAltMask)) == 0 && WritesCharacter(key.KeyCode);
  if (writes && (In(area) & kFields) != 0) return "is written";
  if (writes && (In(area) & kLists) != 0) return "goes to the next entry that begins with it";
  return std::nullopt;
}

}  // namespace corvane
