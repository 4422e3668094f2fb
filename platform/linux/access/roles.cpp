#include "platform/linux/access/roles.h"

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <iterator>

#include "platform/accessible.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

struct RoleRow {
  int number;
  AtspiRole bus;
  AtkRole toolkit;
  const char* english;
};

// The bus and the toolkit name their roles alike and number them differently.
#define CORVANE_ROLE(number, name, english) \
  { number, ATSPI_ROLE_##name, ATK_ROLE_##name, english }

// The first row of a number says what it is called. Numbers above 64 are those of
// the later extension of the same list.
constexpr RoleRow kRoles[] = {
    CORVANE_ROLE(2, MENU_BAR, "menu bar"),
    CORVANE_ROLE(3, SCROLL_BAR, "scroll bar"),
    CORVANE_ROLE(8, ALERT, "alert"),
    CORVANE_ROLE(8, NOTIFICATION, ""),
    CORVANE_ROLE(9, WINDOW, "window"),
    CORVANE_ROLE(9, FRAME, ""),
    CORVANE_ROLE(9, INTERNAL_FRAME, ""),
    CORVANE_ROLE(11, MENU, "popup menu"),
    CORVANE_ROLE(11, POPUP_MENU, ""),
    CORVANE_ROLE(12, MENU_ITEM, "menu item"),
    CORVANE_ROLE(12, CHECK_MENU_ITEM, ""),
    CORVANE_ROLE(12, RADIO_MENU_ITEM, ""),
    CORVANE_ROLE(13, TOOL_TIP, "tool tip"),
    CORVANE_ROLE(14, APPLICATION, "application"),
    CORVANE_ROLE(15, DOCUMENT_WEB, "document"),
    CORVANE_ROLE(15, DOCUMENT_FRAME, ""),
    CORVANE_ROLE(15, DOCUMENT_TEXT, ""),
    CORVANE_ROLE(15, ARTICLE, ""),
    CORVANE_ROLE(16, PANEL, "pane"),
    CORVANE_ROLE(16, SCROLL_PANE, ""),
    CORVANE_ROLE(16, SPLIT_PANE, ""),
    CORVANE_ROLE(16, VIEWPORT, ""),
    CORVANE_ROLE(17, CHART, "chart"),
    CORVANE_ROLE(18, DIALOG, "dialog"),
    CORVANE_ROLE(18, FILE_CHOOSER, ""),
    CORVANE_ROLE(18, COLOR_CHOOSER, ""),
    CORVANE_ROLE(18, FONT_CHOOSER, ""),
    CORVANE_ROLE(20, GROUPING, "grouping"),
    CORVANE_ROLE(20, FORM, ""),
    CORVANE_ROLE(20, SECTION, ""),
    CORVANE_ROLE(20, FILLER, ""),
    CORVANE_ROLE(20, LANDMARK, ""),
    CORVANE_ROLE(20, BLOCK_QUOTE, ""),
    CORVANE_ROLE(21, SEPARATOR, "separator"),
    CORVANE_ROLE(22, TOOL_BAR, "tool bar"),
    {23, ATSPI_ROLE_STATUS_BAR, ATK_ROLE_STATUSBAR, "status bar"},
    CORVANE_ROLE(24, TABLE, "table"),
    CORVANE_ROLE(25, COLUMN_HEADER, "column header"),
    CORVANE_ROLE(25, TABLE_COLUMN_HEADER, ""),
    CORVANE_ROLE(26, ROW_HEADER, "row header"),
    CORVANE_ROLE(26, TABLE_ROW_HEADER, ""),
    CORVANE_ROLE(28, TABLE_ROW, "row"),
    CORVANE_ROLE(29, TABLE_CELL, "cell"),
    CORVANE_ROLE(30, LINK, "link"),
    CORVANE_ROLE(33, LIST, "list"),
    CORVANE_ROLE(33, LIST_BOX, ""),
    CORVANE_ROLE(33, DESCRIPTION_LIST, ""),
    CORVANE_ROLE(34, LIST_ITEM, "list item"),
    CORVANE_ROLE(35, TREE, "outline"),
    CORVANE_ROLE(35, TREE_TABLE, ""),
    CORVANE_ROLE(36, TREE_ITEM, "outline item"),
    CORVANE_ROLE(37, PAGE_TAB, "page tab"),
    CORVANE_ROLE(40, IMAGE, "graphic"),
    CORVANE_ROLE(40, ICON, ""),
    CORVANE_ROLE(40, IMAGE_MAP, ""),
    CORVANE_ROLE(40, CANVAS, ""),
    CORVANE_ROLE(41, LABEL, "text"),
    CORVANE_ROLE(41, STATIC, ""),
    CORVANE_ROLE(41, PARAGRAPH, ""),
    CORVANE_ROLE(41, CAPTION, ""),
    CORVANE_ROLE(41, DESCRIPTION_TERM, ""),
    CORVANE_ROLE(41, DESCRIPTION_VALUE, ""),
    CORVANE_ROLE(42, ENTRY, "editable text"),
    CORVANE_ROLE(42, TEXT, ""),
    CORVANE_ROLE(42, PASSWORD_TEXT, ""),
    CORVANE_ROLE(42, EDITBAR, ""),
    CORVANE_ROLE(42, TERMINAL, ""),
    CORVANE_ROLE(43, PUSH_BUTTON, "push button"),
    CORVANE_ROLE(43, TOGGLE_BUTTON, ""),
    CORVANE_ROLE(44, CHECK_BOX, "check box"),
    CORVANE_ROLE(45, RADIO_BUTTON, "radio button"),
    CORVANE_ROLE(46, COMBO_BOX, "combo box"),
    CORVANE_ROLE(48, PROGRESS_BAR, "progress bar"),
    CORVANE_ROLE(48, LEVEL_BAR, ""),
    CORVANE_ROLE(49, DIAL, "dial"),
    CORVANE_ROLE(51, SLIDER, "slider"),
    CORVANE_ROLE(52, SPIN_BUTTON, "spin box"),
    CORVANE_ROLE(54, ANIMATION, "animation"),
    CORVANE_ROLE(55, MATH, "equation"),
    CORVANE_ROLE(60, PAGE_TAB_LIST, "page tab list"),
    CORVANE_ROLE(0x414, HEADING, "heading"),
};
#undef CORVANE_ROLE

constexpr int kGrouping = 20;

// Numbers that no element here has, but that may be asked for by name.
constexpr struct {
  int number;
  const char* english;
} kOtherNames[] = {
    {1, "title bar"},       {4, "grip"},
    {5, "sound"},           {6, "cursor"},
    {7, "caret"},           {10, "client"},
    {19, "border"},         {27, "column"},
    {31, "help balloon"},   {32, "character"},
    {38, "property page"},  {39, "indicator"},
    {47, "drop down"},      {50, "hot key field"},
    {53, "diagram"},        {56, "drop down button"},
    {57, "menu button"},    {58, "drop down grid button"},
    {59, "white space"},    {61, "clock"},
    {62, "split button"},   {63, "IP address"},
    {64, "outline button"},
};

template <class Fits>
int NumberOf(Fits fits) {
  const auto* row = std::find_if(std::begin(kRoles), std::end(kRoles), fits);
  return row == std::end(kRoles) ? kGrouping : row->number;
}

// The state bits of the product.
enum State : std::uint32_t {
  kUnavailable = 0x1,
  kSelected = 0x2,
  kFocused = 0x4,
  kPressed = 0x8,
  kChecked = 0x10,
  kMixed = 0x20,
  kReadOnly = 0x40,
  kDefault = 0x100,
  kExpanded = 0x200,
  kCollapsed = 0x400,
  kBusy = 0x800,
  kOffscreen = 0x10000,
  kFocusable = 0x100000,
  kSelectable = 0x200000,
  kTraversed = 0x800000,
  kMultiSelectable = 0x1000000,
  kProtected = 0x20000000,
};

struct StateRow {
  AtspiStateType bus;
  AtkStateType toolkit;
  std::uint32_t when_set;
  std::uint32_t when_clear;
};
#define CORVANE_STATE(name, when_set, when_clear) \
  { ATSPI_STATE_##name, ATK_STATE_##name, when_set, when_clear }

constexpr StateRow kStates[] = {
    CORVANE_STATE(VISIBLE, 0, kStateInvisible),
    CORVANE_STATE(SHOWING, 0, kOffscreen),
    CORVANE_STATE(SENSITIVE, 0, kUnavailable),
    CORVANE_STATE(SELECTED, kSelected, 0),
    CORVANE_STATE(FOCUSED, kFocused, 0),
    CORVANE_STATE(PRESSED, kPressed, 0),
    CORVANE_STATE(CHECKED, kChecked, 0),
    CORVANE_STATE(INDETERMINATE, kMixed, 0),
    CORVANE_STATE(READ_ONLY, kReadOnly, 0),
    {ATSPI_STATE_IS_DEFAULT, ATK_STATE_DEFAULT, kDefault, 0},
    CORVANE_STATE(BUSY, kBusy, 0),
    CORVANE_STATE(FOCUSABLE, kFocusable, 0),
    CORVANE_STATE(SELECTABLE, kSelectable, 0),
    CORVANE_STATE(VISITED, kTraversed, 0),
    CORVANE_STATE(MULTISELECTABLE, kMultiSelectable, 0),
};
#undef CORVANE_STATE

template <class Has>
std::uint32_t Translate(Has has) {
  std::uint32_t state = 0;
  for (const StateRow& row : kStates) state |= has(row) ? row.when_set : row.when_clear;
  return state;
}

std::uint32_t Opened(bool expandable, bool expanded) {
  if (expanded) return kExpanded;
  return expandable ? kCollapsed : 0U;
}

}  // namespace

int RoleOfBus(std::uint32_t role) {
  return NumberOf(
      [role](const RoleRow& row) { return static_cast<std::uint32_t>(row.bus) == role; });
}

int RoleOfToolkit(AtkRole role) {
  return NumberOf([role](const RoleRow& row) { return row.toolkit == role; });
}

std::string WordsOfRole(int role) {
  const auto* row = std::find_if(std::begin(kRoles), std::end(kRoles),
                                 [role](const RoleRow& each) { return each.number == role; });
  if (row != std::end(kRoles)) {
    const std::string native = atk_role_get_localized_name(row->toolkit);
    return native != atk_role_get_name(row->toolkit) ? native : row->english;
  }
  const auto* other = std::find_if(std::begin(kOtherNames), std::end(kOtherNames),
                                   [role](const auto& each) { return each.number == role; });
  return other != std::end(kOtherNames) ? other->english : "";
}

std::uint32_t StateOfBus(std::uint64_t states, bool is_protected) {
  const auto has = [states](AtspiStateType type) {
    return ((states >> static_cast<unsigned>(type)) & 1U) != 0;
  };
  return Translate([&](const StateRow& row) { return has(row.bus); }) |
         Opened(has(ATSPI_STATE_EXPANDABLE), has(ATSPI_STATE_EXPANDED)) |
         (is_protected ? kProtected : 0U);
}

std::uint32_t StateOfToolkit(AtkObject* object) {
  const ObjectPtr<AtkStateSet> set(atk_object_ref_state_set(object));
  const auto has = [&](AtkStateType type) {
    return atk_state_set_contains_state(set.get(), type) != FALSE;
  };
  return Translate([&](const StateRow& row) { return has(row.toolkit); }) |
         Opened(has(ATK_STATE_EXPANDABLE), has(ATK_STATE_EXPANDED)) |
         (atk_object_get_role(object) == ATK_ROLE_PASSWORD_TEXT ? kProtected : 0U);
}

}  // namespace corvane::desktop
