#include "platform/linux/web/option_list.h"

#include <gdk/gdkkeysyms.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/safe_name.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestOption = 300;  // characters
constexpr guint kMostOptions = 50'000;
constexpr int kPage = 10;              // options that Page Up and Page Down pass
constexpr int kShownRows = 20;         // at most
constexpr guint32 kTypingTime = 1000;  // milliseconds between two letters of one search

enum Column { kText, kEnabled, kOption, kColumns };

OptionList& ListOf(gpointer self) { return *static_cast<OptionList*>(self); }

std::string TextOf(const char* text) { return Shorten(Text(text), kLongestOption); }

std::string Folded(const std::string& text) {
  const GText folded(g_utf8_casefold(text.c_str(), -1));
  return folded.get();
}

bool IsOneLetter(const std::string& typed) {
  const auto length = static_cast<std::size_t>(g_utf8_next_char(typed.c_str()) - typed.c_str());
  const std::string first = typed.substr(0, length);
  std::string rest = typed;
  while (rest.starts_with(first)) rest.erase(0, first.size());
  return rest.empty();
}

bool IsAnyOf(guint key, std::initializer_list<guint> keys) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

OptionList::OptionList(WebKitWebView* view, std::function<void(const OpenList&)> tell)
    : view_(view), tell_(std::move(tell)) {
  // Who leaves the window or the page has left the list.
  g_signal_connect(view_, "focus-out-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEventFocus*, gpointer self) -> gboolean {
                     ListOf(self).Close();
                     return FALSE;
                   }),
                   this);
}

OptionList::~OptionList() {
  g_signal_handlers_disconnect_by_data(view_, this);
  if (window_ == nullptr) return;
  g_signal_handlers_disconnect_by_data(menu_.get(), this);
  gtk_widget_destroy(window_);
}

void OptionList::Open(WebKitOptionMenu* menu, const GdkRectangle& area) {
  Finish(false);
  menu_.reset(WEBKIT_OPTION_MENU(g_object_ref(menu)));
  g_signal_connect(menu, "close",
                   G_CALLBACK(+[](WebKitOptionMenu*, gpointer self) { ListOf(self).Close(); }),
                   this);
  Read();
  Build(area);
  if (chosen_ >= 0) Reach(chosen_);
  Tell(true);
}

void OptionList::Read() {
  options_.clear();
  at_ = chosen_ = -1;
  typed_.clear();
  std::string group;
  const guint count = std::min(webkit_option_menu_get_n_items(menu_.get()), kMostOptions);
  for (guint i = 0; i < count; ++i) {
    WebKitOptionMenuItem* item = webkit_option_menu_get_item(menu_.get(), i);
    const std::string text = TextOf(webkit_option_menu_item_get_label(item));
    if (webkit_option_menu_item_is_group_label(item) != FALSE) {
      group = text;
      continue;
    }
    if (webkit_option_menu_item_is_group_child(item) == FALSE) group.clear();
    if (webkit_option_menu_item_is_selected(item) != FALSE) {
      chosen_ = static_cast<int>(options_.size());
    }
    options_.push_back({i, text, group, webkit_option_menu_item_is_enabled(item) != FALSE});
  }
}

// --- what is seen of it --------------------------------------------------------

GtkTreeModel* OptionList::MakeModel() {
  GtkListStore* rows = gtk_list_store_new(kColumns, G_TYPE_STRING, G_TYPE_BOOLEAN, G_TYPE_INT);
  rows_.clear();
  int row = 0;
  std::string group;
  const auto add = [&](const std::string& text, bool enabled, int option) {
    gtk_list_store_insert_with_values(rows, nullptr, row++, kText, text.c_str(), kEnabled,
                                      static_cast<gboolean>(enabled), kOption, option, -1);
  };
  for (std::size_t i = 0; i < options_.size(); ++i) {
    const Option& option = options_[i];
    if (option.group != group && !option.group.empty()) add(option.group, false, -1);
    group = option.group;
    rows_.push_back(row);
    add(group.empty() ? option.text : "  " + option.text, option.enabled, static_cast<int>(i));
  }
  return GTK_TREE_MODEL(rows);
}

void OptionList::Build(const GdkRectangle& area) {
  window_ = gtk_window_new(GTK_WINDOW_POPUP);
  gtk_window_set_type_hint(GTK_WINDOW(window_), GDK_WINDOW_TYPE_HINT_COMBO);
  GtkWidget* top = gtk_widget_get_toplevel(GTK_WIDGET(view_));
  if (GTK_IS_WINDOW(top)) gtk_window_set_transient_for(GTK_WINDOW(window_), GTK_WINDOW(top));

  const ObjectPtr<GtkTreeModel> model(MakeModel());
  tree_ = GTK_TREE_VIEW(gtk_tree_view_new_with_model(model.get()));
  gtk_tree_view_set_headers_visible(tree_, FALSE);
  gtk_tree_view_set_enable_search(tree_, FALSE);
  gtk_tree_view_set_activate_on_single_click(tree_, TRUE);
  GtkTreeViewColumn* column = gtk_tree_view_column_new_with_attributes(
      "", gtk_cell_renderer_text_new(), "text", kText, "sensitive", kEnabled, nullptr);
  gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
  gtk_tree_view_append_column(tree_, column);
  gtk_tree_view_set_fixed_height_mode(tree_, TRUE);

  GtkWidget* scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled), GTK_POLICY_NEVER,
                                 GTK_POLICY_AUTOMATIC);
  gtk_container_add(GTK_CONTAINER(scrolled), GTK_WIDGET(tree_));
  gtk_container_add(GTK_CONTAINER(window_), scrolled);

  g_signal_connect(
      tree_, "row-activated",
      G_CALLBACK(+[](GtkTreeView*, GtkTreePath* path, GtkTreeViewColumn*, gpointer self) {
        OptionList& list = ListOf(self);
        const int row = gtk_tree_path_get_indices(path)[0];
        const auto found = std::find(list.rows_.begin(), list.rows_.end(), row);
        if (found == list.rows_.end()) return;
        const auto option = static_cast<int>(found - list.rows_.begin());
        if (!list.options_[static_cast<std::size_t>(option)].enabled) return;
        list.Reach(option);
        list.Finish(true);
      }),
      this);
  const auto listen = [this](const char* signal, GCallback handler) {
    g_signal_connect(window_, signal, handler, this);
  };
  listen("key-press-event",
         G_CALLBACK(+[](GtkWidget*, GdkEventKey* event, gpointer self) -> gboolean {
           return ListOf(self).Key(*event);
         }));
  // A press beside the list.
  listen("button-press-event", G_CALLBACK(+[](GtkWidget*, GdkEventButton*, gpointer self) {
           ListOf(self).Close();
           return TRUE;
         }));
  gtk_widget_show_all(scrolled);
  PlaceAt(area);
  gtk_widget_show(window_);
  // The keys come through the page's own window, which keeps the focus.
  gtk_grab_add(window_);
  GdkWindow* window = gtk_widget_get_window(window_);
  gdk_seat_grab(gdk_display_get_default_seat(gdk_window_get_display(window)), window,
                GDK_SEAT_CAPABILITY_ALL_POINTING, TRUE, nullptr, nullptr, nullptr, nullptr);
}

void OptionList::PlaceAt(const GdkRectangle& area) {
  GtkTreeViewColumn* column = gtk_tree_view_get_column(tree_, 0);
  int height = 0;
  gtk_tree_view_column_cell_get_size(column, nullptr, nullptr, nullptr, nullptr, &height);
  std::size_t longest = 0;
  for (const Option& option : options_) longest = std::max(longest, option.text.size());
  gint rows = gtk_tree_model_iter_n_children(gtk_tree_view_get_model(tree_), nullptr);
  rows = std::clamp(rows, 1, kShownRows);
  const int width = std::clamp(static_cast<int>(longest) * 8 + 30, std::max(area.width, 40), 600);
  gtk_widget_set_size_request(window_, width, rows * (std::max(height, 16) + 4) + 4);

  GdkWindow* window = gtk_widget_get_window(GTK_WIDGET(view_));
  if (window == nullptr) return;
  GtkAllocation view;
  gtk_widget_get_allocation(GTK_WIDGET(view_), &view);
  const bool own = gtk_widget_get_has_window(GTK_WIDGET(view_)) != FALSE;
  int x = 0;
  int y = 0;
  gdk_window_get_root_coords(window, area.x + (own ? 0 : view.x),
                             area.y + area.height + (own ? 0 : view.y), &x, &y);
  gtk_window_move(GTK_WINDOW(window_), x, y);
}

// --- keys ------------------------------------------------------------------------

gboolean OptionList::Key(const GdkEventKey& event) {
  const auto last = static_cast<int>(options_.size()) - 1;
  const bool alt = (event.state & GDK_MOD1_MASK) != 0;
  const guint key = event.keyval;
  if (IsAnyOf(key, {GDK_KEY_Up, GDK_KEY_KP_Up})) {
    alt ? Finish(true) : Step(at_ - 1, -1);
  } else if (IsAnyOf(key, {GDK_KEY_Down, GDK_KEY_KP_Down})) {
    alt ? Finish(true) : Step(at_ + 1, 1);
  } else if (IsAnyOf(key, {GDK_KEY_Home, GDK_KEY_KP_Home})) {
    Step(0, 1);
  } else if (IsAnyOf(key, {GDK_KEY_End, GDK_KEY_KP_End})) {
    Step(last, -1);
  } else if (IsAnyOf(key, {GDK_KEY_Page_Up, GDK_KEY_KP_Page_Up})) {
    Step(std::max(at_ - kPage, 0), 1);
  } else if (IsAnyOf(key, {GDK_KEY_Page_Down, GDK_KEY_KP_Page_Down})) {
    Step(std::min(at_ + kPage, last), -1);
  } else if (IsAnyOf(key, {GDK_KEY_Return, GDK_KEY_KP_Enter, GDK_KEY_ISO_Enter, GDK_KEY_Tab,
                           GDK_KEY_ISO_Left_Tab, GDK_KEY_F4}) ||
             (key == GDK_KEY_space && typed_.empty())) {
    Finish(true);
  } else if (key == GDK_KEY_Escape) {
    Finish(false);
  } else if (const gunichar letter = gdk_keyval_to_unicode(key);
             letter != 0 && g_unichar_isprint(letter) != FALSE && !alt &&
             (event.state & GDK_CONTROL_MASK) == 0) {
    Look(letter, event.time);
  }
  return TRUE;
}

// Several letters are the beginning of an option; the same one again leads to the next
// that begins with it.
void OptionList::Look(gunichar letter, guint32 time) {
  if (time - typed_at_ > kTypingTime) typed_.clear();
  typed_at_ = time;
  std::array<char, 6> bytes = {};
  typed_.append(bytes.data(), static_cast<std::size_t>(g_unichar_to_utf8(letter, bytes.data())));
  const bool steps = IsOneLetter(typed_);
  const std::string wanted =
      Folded(steps ? std::string(bytes.data(),
                                 static_cast<std::size_t>(g_unichar_to_utf8(letter, bytes.data())))
                   : typed_);
  const auto count = static_cast<int>(options_.size());
  for (int i = 0; i < count; ++i) {
    const int each = (std::max(at_, 0) + i + (steps && at_ >= 0 ? 1 : 0)) % count;
    const Option& option = options_[static_cast<std::size_t>(each)];
    if (option.enabled && Folded(option.text).starts_with(wanted)) {
      Reach(each);
      return Tell(true);
    }
  }
  Tell(true);  // hears where he is
}

// The first option from there on that can be chosen; where there is none, none is left.
void OptionList::Step(int from, int step) {
  const auto count = static_cast<int>(options_.size());
  int at = from;
  while (at >= 0 && at < count && !options_[static_cast<std::size_t>(at)].enabled) at += step;
  if (at >= 0 && at < count) Reach(at);
  Tell(true);
}

void OptionList::Reach(int option) {
  at_ = option;
  GtkTreePath* path = gtk_tree_path_new_from_indices(rows_[static_cast<std::size_t>(option)], -1);
  gtk_tree_view_set_cursor(tree_, path, nullptr, FALSE);
  gtk_tree_path_free(path);
}

void OptionList::Tell(bool open) {
  OpenList list;
  list.open = open;
  list.size = static_cast<int>(options_.size());
  if (at_ >= 0) {
    list.option = options_[static_cast<std::size_t>(at_)].text;
    list.group = options_[static_cast<std::size_t>(at_)].group;
    list.place = at_ + 1;
  }
  tell_(list);
}

// The engine chooses what its menu last had selected when that closes; here that is what
// was chosen before.
void OptionList::Finish(bool choose) {
  if (window_ == nullptr) return;
  GtkWidget* window = std::exchange(window_, nullptr);
  const ObjectPtr<WebKitOptionMenu> menu = std::move(menu_);
  g_signal_handlers_disconnect_by_data(menu.get(), this);
  gdk_seat_ungrab(gdk_display_get_default_seat(gtk_widget_get_display(window)));
  gtk_grab_remove(window);
  gtk_widget_destroy(window);
  tree_ = nullptr;
  if (!choose) at_ = chosen_;
  if (choose && at_ >= 0) {
    webkit_option_menu_activate_item(menu.get(), options_[static_cast<std::size_t>(at_)].item);
  } else {
    webkit_option_menu_close(menu.get());
  }
  Tell(false);
}

}  // namespace corvane::desktop
