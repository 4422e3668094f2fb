#include "platform/linux/access/linux_accessibility.h"

#include <gtkmm/widget.h>

#include <utility>

#include "platform/linux/access/desktop_object.h"
#include "platform/linux/access/desktop_reader.h"
#include "platform/linux/access/element_reader.h"
#include "platform/linux/access/own_windows.h"
#include "platform/linux/access/roles.h"
#include "platform/linux/access/window_stack.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr const char* kLost = "Accessibility has ended: its service is gone.";

std::shared_ptr<const Snapshot> Only(Element element) {
  auto snapshot = std::make_shared<Snapshot>();
  snapshot->Add(std::move(element), {});
  return snapshot;
}

AtkObject* ElementOf(const WindowTable& windows, WindowHandle window) {
  Gtk::Widget* widget = windows.WidgetOf(window);
  return widget != nullptr ? gtk_widget_get_accessible(widget->gobj()) : nullptr;
}

}  // namespace

/// How own elements find what lies around them.
class LinuxAccessibility::OwnFamily : public LocalAccessible::Family {
 public:
  explicit OwnFamily(LinuxAccessibility& owner) : owner_(owner) {}
  AccessiblePtr Inside(AtkObject* socket) override {
    const WindowHandle window = FetchedWindowOf(socket);
    return window != 0 ? owner_.ObjectFromWindow(window, kObjectClient) : nullptr;
  }
  std::vector<AccessiblePtr> OtherWindows() override {
    std::vector<AccessiblePtr> windows;
    for (const WindowHandle each : owner_.others_.Handles()) {
      if (auto window = owner_.ObjectFromWindow(each, kObjectWindow)) {
        windows.push_back(std::move(window));
      }
    }
    return windows;
  }
  AccessiblePtr Desktop() override { return owner_.ObjectFromWindow(0, kObjectClient); }
  WindowHandle WindowOf(AtkObject* object) override {
    if (const auto fetched = FetchedWindowOf(object)) return fetched;
    for (; object != nullptr; object = atk_object_get_parent(object)) {
      if (!GTK_IS_ACCESSIBLE(object)) continue;
      GtkWidget* widget = gtk_accessible_get_widget(GTK_ACCESSIBLE(object));
      if (widget == nullptr) continue;
      if (const auto handle = owner_.windows_.WindowAround(widget)) return handle;
    }
    return 0;
  }

 private:
  // A socket does not know its widget.
  WindowHandle FetchedWindowOf(AtkObject* object) const {
    for (const auto& [window, tree] : owner_.trees_) {
      if (ElementOf(owner_.windows_, window) == object) return window;
    }
    return 0;
  }

  LinuxAccessibility& owner_;
};

/// One Fetch under way. Filled on the bus's thread, read on the user's after it.
struct LinuxAccessibility::Request {
  struct Part {
    WindowHandle window;
    ElementRef plug;                 ///< of a page
    std::optional<ElementRef> root;  ///< known from the beginning of another program's window
    std::shared_ptr<const Snapshot> snapshot;
  };
  std::vector<Part> parts;
  Depth depth = Depth::Top;
  bool desktop = false;                             ///< is asked for, too
  std::optional<std::vector<OtherWindow>> windows;  ///< of other programs
  std::string problem;
  std::function<void()> done;
  std::shared_ptr<std::atomic<bool>> cancelled = std::make_shared<std::atomic<bool>>(false);
  std::function<void()> arrived;  // tells the user's thread

  static void LeaveAlone(Part& part);
  // Reads one part after the other.
  static void ReadFrom(std::size_t index, const std::shared_ptr<Request>& request, AccessBus& bus) {
    if (*request->cancelled) return;
    if (index == request->parts.size()) return ReadDesktop(request, bus);
    auto& part = request->parts[index];
    if (part.snapshot) return ReadFrom(index + 1, request, bus);
    if (part.root) return ReadPart(index, request, bus);
    reader::FindDocument(bus, part.plug, [=, &bus, &part](std::optional<ElementRef> root) {
      part.root = root;
      if (!root) return ReadFrom(index + 1, request, bus);
      ReadPart(index, request, bus);
    });
  }
  static void ReadPart(std::size_t index, const std::shared_ptr<Request>& request, AccessBus& bus) {
    auto& part = request->parts[index];
    if (request->depth == Depth::Top) {
      return reader::ReadElement(bus, *part.root, [=, &bus, &part](Element top) {
        part.snapshot = Only(std::move(top));
        ReadFrom(index + 1, request, bus);
      });
    }
    reader::ReadTree(bus, *part.root, request->cancelled,
                     [=, &bus, &part](std::shared_ptr<const Snapshot> snapshot) {
                       part.snapshot = std::move(snapshot);
                       ReadFrom(index + 1, request, bus);
                     });
  }
  static void ReadDesktop(const std::shared_ptr<Request>& request, AccessBus& bus) {
    if (!request->desktop) return request->arrived();
    reader::ReadDesktop(bus, [request](std::vector<OtherWindow> windows) {
      request->windows = std::move(windows);
      request->arrived();
    });
  }
};

// From the first question on, the engine makes an element of everything in a page, and
// tells the bus of each when the page is left: seconds for a page of many thousands.
void LinuxAccessibility::Request::LeaveAlone(Part& part) {
  Element page;
  page.ref = part.plug;
  page.role = kRoleDocument;
  page.child_count = 1;  // or more, or none: that is asked when they are wanted
  part.root = part.plug;
  part.snapshot = Only(std::move(page));
}

LinuxAccessibility::LinuxAccessibility(WindowTable& windows)
    : windows_(windows),
      family_(std::make_shared<OwnFamily>(*this)),
      bus_(std::make_shared<AccessBus>([this, here = life_.Look()] {
        PostToLoop(
            [this, here] {
              if (here) Problem.Raise(kLost);
            },
            Turn::InTurn);
      })) {}

LinuxAccessibility::~LinuxAccessibility() {
  life_.End();
  family_.reset();
}

Connection LinuxAccessibility::Fetch(const std::vector<WindowHandle>& windows, Depth depth,
                                     std::function<void()> done) {
  auto request = std::make_shared<Request>();
  request->depth = depth;
  request->done = std::move(done);
  for (const WindowHandle window : windows) {
    if (window == 0) request->desktop = true;
    if (const OtherWindow* other = others_.Find(window)) {
      request->parts.push_back({window, {}, other->element.ref, nullptr});
      continue;
    }
    const auto plug = PlugOf(ElementOf(windows_, window));
    trees_.erase(window);
    if (!plug) continue;
    request->parts.push_back({window, *plug, {}, nullptr});
    if (depth == Depth::Top) Request::LeaveAlone(request->parts.back());
  }
  request->arrived = [weak = std::weak_ptr(request), this, here = life_.Look()] {
    PostToLoop(
        [request = weak.lock(), this, here] {
          if (here && request && !*request->cancelled) Finish(request);
        },
        Turn::InTurn);
  };
  bus_->Post([request, bus = bus_.get()] {
    bus->Connect([request, bus](const std::string& problem) {
      request->problem = problem;
      if (!problem.empty()) return request->arrived();
      Request::ReadFrom(0, request, *bus);
    });
  });
  return Connection([cancelled = request->cancelled] { *cancelled = true; });
}

Connection LinuxAccessibility::FetchChildren(
    const AccessiblePtr& parent, int from, int most,
    std::function<void(const std::vector<AccessibleElement>&)> done) {
  // Lives as long as the connection and ends on the user's thread.
  struct Asked {
    std::shared_ptr<const RemoteAccessible> remote;
    std::function<void(const std::vector<AccessibleElement>&)> done;
  };
  const auto asked = std::make_shared<Asked>(
      std::dynamic_pointer_cast<const RemoteAccessible>(parent), std::move(done));
  const std::weak_ptr wanted = asked;
  if (asked->remote) {
    asked->remote->ReadChildren(from, most, [wanted](std::vector<Element> read) {
      PostToLoop(
          [wanted, read = std::move(read)] {
            if (const auto here = wanted.lock()) here->done(here->remote->Objects(read));
          },
          Turn::InTurn);
    });
  } else {
    auto children = parent ? parent->Children(from + most) : std::vector<AccessibleElement>();
    children.erase(children.begin(), std::min(children.begin() + from, children.end()));
    PostToLoop(
        [wanted, children = std::move(children)] {
          if (const auto here = wanted.lock()) here->done(children);
        },
        Turn::InTurn);
  }
  return Connection([held = asked]() mutable { held.reset(); });
}

void LinuxAccessibility::Finish(const std::shared_ptr<Request>& request) {
  if (!request->problem.empty()) {
    Problem.Raise(request->problem);
    if (*request->cancelled) return;
  }
  if (request->windows) Keep(*request->windows);
  for (const auto& part : request->parts) {
    if (const auto known = others_.Find(part.window) ? TreeOf(part.window) : nullptr) {
      auto tree = std::make_shared<RemoteTree>(*known);
      if (part.snapshot) tree->snapshot = part.snapshot;
      trees_[part.window] = std::move(tree);
    }
    AtkObject* socket = ElementOf(windows_, part.window);
    if (!part.root || !part.snapshot || socket == nullptr) continue;
    auto tree = std::make_shared<RemoteTree>();
    tree->bus = bus_;
    tree->snapshot = part.snapshot;
    tree->window = part.window;
    tree->root = *part.root;
    tree->is_plug = *part.root == part.plug;
    tree->host = std::make_shared<LocalAccessible>(family_, socket);
    tree->coordinates = reader::Coordinates::Window;
    tree->origin = [window = part.window, this, here = life_.Look()] {
      Gtk::Widget* widget = here ? windows_.WidgetOf(window) : nullptr;
      return widget != nullptr ? OriginOf(widget->gobj()) : ScreenPoint();
    };
    trees_[part.window] = std::move(tree);
  }
  const auto done = request->done;
  done();
}

// What is no longer there is forgotten with all that was fetched of it.
void LinuxAccessibility::Keep(const std::vector<OtherWindow>& present) {
  const auto before = others_.Handles();
  others_.Update(present);
  for (const WindowHandle each : before) {
    if (others_.Find(each) == nullptr) trees_.erase(each);
  }
}

// A window of another program that has not been fetched is known itself; what lies
// in it is asked for when it is wanted.
std::shared_ptr<const RemoteTree> LinuxAccessibility::TreeOf(WindowHandle window) {
  const auto known = trees_.find(window);
  if (known != trees_.end()) return known->second;
  const OtherWindow* other = others_.Find(window);
  if (other == nullptr) return nullptr;
  auto tree = std::make_shared<RemoteTree>();
  tree->bus = bus_;
  tree->snapshot = Only(other->element);
  tree->window = window;
  tree->root = other->element.ref;
  tree->host = std::make_shared<DesktopObject>(family_);
  return trees_[window] = std::move(tree);
}

AccessiblePtr LinuxAccessibility::ObjectFromWindow(WindowHandle window, std::int32_t /*id*/) {
  if (window == 0) return std::make_shared<DesktopObject>(family_);
  AtkObject* object = ElementOf(windows_, window);
  if (object != nullptr && !ATK_IS_SOCKET(object)) {
    return std::make_shared<LocalAccessible>(family_, object);
  }
  const auto tree = TreeOf(window);
  if (!tree) return nullptr;
  const Element* root = tree->snapshot->Find(tree->root);
  if (root == nullptr || root->role == kRoleVanished) return nullptr;
  return std::make_shared<RemoteAccessible>(tree, *root);
}

AccessibleElement LinuxAccessibility::ObjectFromPoint(ScreenPoint point) {
  const auto menus = OwnWindowsAt(point, true);
  if (!menus.empty()) return OwnAt(menus.front(), point);
  const auto top = TopWindowAt(point);
  if (top) return top->own != nullptr ? OwnAt(top->own, point) : OtherAt(top->other, point);
  const auto own = OwnWindowsAt(point, false);
  return own.empty() ? OtherAt({}, point) : OwnAt(own.front(), point);
}

AccessibleElement LinuxAccessibility::OwnAt(GtkWidget* top, ScreenPoint point) {
  const ObjectPtr<AtkObject> own(OwnElementAt(top, point));
  if (ATK_IS_SOCKET(own.get())) {
    const auto page = family_->Inside(own.get());
    const auto* remote = dynamic_cast<const RemoteAccessible*>(page.get());
    if (remote != nullptr) {
      const auto inner = remote->At(point);
      return {inner ? inner : page, {}};
    }
  }
  return {std::make_shared<LocalAccessible>(family_, own.get()), {}};
}

AccessibleElement LinuxAccessibility::OtherAt(const std::optional<StackedWindow>& top,
                                              ScreenPoint point) {
  const auto known = others_.All();
  const OtherWindow* window = WindowAt(known, top, point);
  if (window == nullptr) return {};
  const auto tree = TreeOf(others_.HandleOf(window->element.ref));
  const auto frame = std::make_shared<RemoteAccessible>(tree, window->element);
  const auto inner = frame->At(point);
  return {inner ? inner : frame, {}};
}

ScreenPoint LinuxAccessibility::CursorPos() const { return PointerOnScreen(); }

// A page's caret is known to the page only.
ScreenPoint LinuxAccessibility::CaretPos() const {
  const auto plug = PlugOf(FocusedElement());
  if (!plug) return CaretInControl();
  using Answer = std::optional<ScreenPoint>;
  const auto caret =
      bus_->Ask<Answer>([bus = bus_.get(), plug = *plug](std::function<void(Answer)> done) {
        bus->Connect([bus, plug, done](const std::string& /*problem*/) {
          reader::FindDocument(*bus, plug, [bus, done](const std::optional<ElementRef>& document) {
            if (!document) return done({});
            reader::ReadCaret(*bus, *document, done);
          });
        });
      });
  return caret.value_or(Answer()).value_or(ScreenPoint());
}

void LinuxAccessibility::ReadFocus(GtkWidget* view, std::function<void(const FieldFocus&)> seen) {
  const auto plug = PlugOf(gtk_widget_get_accessible(view));
  if (!plug) return seen({});
  const auto tell = [here = life_.Look(), seen = std::move(seen)](const FieldFocus& focus) {
    PostToLoop(
        [here, seen, focus] {
          if (here) seen(focus);
        },
        Turn::InTurn);
  };
  bus_->Post([bus = bus_.get(), plug = *plug, tell] {
    bus->Connect([bus, plug, tell](const std::string& /*problem*/) {
      reader::FindDocument(*bus, plug, [bus, tell](const std::optional<ElementRef>& document) {
        if (!document) return tell({});
        reader::ReadFocus(*bus, *document, tell);
      });
    });
  });
}

std::string LinuxAccessibility::RoleText(int role) const { return WordsOfRole(role); }

}  // namespace corvane::desktop
