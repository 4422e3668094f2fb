#include "platform/linux/access/local_accessible.h"

#include <algorithm>

#include "base/text.h"
#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/roles.h"
#include "platform/linux/access/selection_steps.h"

namespace corvane::desktop {
namespace {

std::string ContentsOf(AtkObject* object) {
  if (!ATK_IS_TEXT(object)) return "";
  const GText text(atk_text_get_text(ATK_TEXT(object), 0, -1));
  return text::valid(corvane::desktop::Text(text.get()));
}

void SelectInContainer(AtkObject* object, int flags) {
  AtkObject* parent = atk_object_get_parent(object);
  const int index = atk_object_get_index_in_parent(object);
  if (parent == nullptr || index < 0 || !ATK_IS_SELECTION(parent)) return;
  AtkSelection* selection = ATK_SELECTION(parent);
  std::vector<int> selected;
  for (int i = 0; i < atk_selection_get_selection_count(selection); ++i) {
    const ObjectPtr<AtkObject> each(atk_selection_ref_selection(selection, i));
    if (each) selected.push_back(atk_object_get_index_in_parent(each.get()));
  }
  std::sort(selected.begin(), selected.end());
  const SelectionSteps steps = StepsFor(flags, index, selected);
  if (steps.clear) atk_selection_clear_selection(selection);
  for (const int each : steps.select) atk_selection_add_selection(selection, each);
}

}  // namespace

bool LocalAccessible::Gone() const {
  const ObjectPtr<AtkStateSet> states(atk_object_ref_state_set(object_.get()));
  return atk_state_set_contains_state(states.get(), ATK_STATE_DEFUNCT) != FALSE;
}

int LocalAccessible::ChildCount() const {
  if (ATK_IS_SOCKET(object_.get())) {
    const auto children = Children(1);
    return static_cast<int>(children.size());
  }
  return atk_object_get_n_accessible_children(object_.get());
}

std::vector<AccessibleElement> LocalAccessible::Children(int most) const {
  std::vector<AccessibleElement> children;
  const auto family = family_.lock();
  if (!family) return children;
  if (ATK_IS_SOCKET(object_.get())) {
    // What another process shows in there is the socket's only child.
    if (const auto inside = family->Inside(object_.get())) children.push_back({inside, {}});
    return children;
  }
  const int count = std::min(most, atk_object_get_n_accessible_children(object_.get()));
  for (int i = 0; i < count; ++i) {
    const ObjectPtr<AtkObject> child(atk_object_ref_accessible_child(object_.get(), i));
    if (child) {
      children.push_back({std::make_shared<LocalAccessible>(family_, child.get()), {}});
    }
  }
  return children;
}

AccessiblePtr LocalAccessible::Parent() const {
  const auto family = family_.lock();
  if (!family) return nullptr;
  AtkObject* parent = atk_object_get_parent(object_.get());
  if (parent == nullptr || parent == atk_get_root()) return family->Desktop();
  return std::make_shared<LocalAccessible>(family_, parent);
}

WindowHandle LocalAccessible::Window() const {
  const auto family = family_.lock();
  return family ? family->WindowOf(object_.get()) : 0;
}

std::string LocalAccessible::Value() const {
  const int role = RoleOfToolkit(atk_object_get_role(object_.get()));
  if (atk_object_get_role(object_.get()) == ATK_ROLE_PASSWORD_TEXT) return "";
  if (role == kRoleEditableText) return ContentsOf(object_.get());
  if (!ATK_IS_VALUE(object_.get())) return "";
  double number = 0;
  gchar* words = nullptr;
  atk_value_get_value_and_text(ATK_VALUE(object_.get()), &number, &words);
  const GText owned(words);
  if (words != nullptr && *words != '\0') return words;
  char buffer[G_ASCII_DTOSTR_BUF_SIZE];
  return g_ascii_formatd(buffer, sizeof buffer, "%.10g", number);
}

std::string LocalAccessible::OwnText(AccessibleText which) const {
  AtkObject* object = object_.get();
  switch (which) {
    case AccessibleText::Name: {
      const std::string name = corvane::desktop::Text(atk_object_get_name(object));
      const bool label = atk_object_get_role(object) == ATK_ROLE_LABEL;
      return name.empty() && label ? PlainText(ContentsOf(object)) : text::valid(name);
    }
    case AccessibleText::Value:
      return Value();
    case AccessibleText::Description:
    case AccessibleText::Help:
      return text::valid(corvane::desktop::Text(atk_object_get_description(object)));
    case AccessibleText::DefaultAction:
      if (!ATK_IS_ACTION(object) || atk_action_get_n_actions(ATK_ACTION(object)) < 1) return "";
      return corvane::desktop::Text(atk_action_get_name(ATK_ACTION(object), 0));
    case AccessibleText::KeyboardShortcut:
      if (!ATK_IS_ACTION(object) || atk_action_get_n_actions(ATK_ACTION(object)) < 1) return "";
      return corvane::desktop::Text(atk_action_get_keybinding(ATK_ACTION(object), 0));
  }
  return "";
}

int LocalAccessible::OwnRole() const {
  return Gone() ? static_cast<int>(kRoleVanished)
                : RoleOfToolkit(atk_object_get_role(object_.get()));
}

std::uint32_t LocalAccessible::OwnState() const { return StateOfToolkit(object_.get()); }

ScreenRect LocalAccessible::OwnLocation() const {
  ScreenRect rect;
  if (ATK_IS_COMPONENT(object_.get())) {
    atk_component_get_extents(ATK_COMPONENT(object_.get()), &rect.left, &rect.top, &rect.width,
                              &rect.height, ATK_XY_SCREEN);
  }
  return rect;
}

void LocalAccessible::OwnSelect(int flags) {
  if ((flags & kSelectTakeFocus) != 0 && ATK_IS_COMPONENT(object_.get())) {
    atk_component_grab_focus(ATK_COMPONENT(object_.get()));
  }
  if (ChangesSelection(flags)) SelectInContainer(object_.get(), flags);
}

void LocalAccessible::OwnDefaultAction() {
  if (ATK_IS_ACTION(object_.get())) atk_action_do_action(ATK_ACTION(object_.get()), 0);
}

}  // namespace corvane::desktop
