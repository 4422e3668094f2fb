#pragma once

#include <optional>
#include <string>

#include "platform/hooks.h"

namespace corvane {

/// The number of the menu bar's first item. The others count on from it in the
/// order in which they are declared, a submenu's items after the item that opens
/// it; the titles of the bar do not count.
inline constexpr int kFirstMenuId = 5;

/// A run of menu items by their numbers.
struct MenuIds {
  int first;
  int last;
};
/// The items of the Settings, View and Speech menus that carry check marks.
inline constexpr MenuIds kMarkedIds{27, 67};
inline constexpr MenuIds kRateIds{57, 61};
inline constexpr MenuIds kPitchIds{63, 67};

/// The place of an item in a run; none when it lies outside.
std::optional<int> IndexIn(MenuIds ids, int item);

/// What is said of a highlighted menu item: its caption and its state.
std::string MenuWords(const MenuSelect& select);

}  // namespace corvane
