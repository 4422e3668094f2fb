#pragma once

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "platform/accessible.h"

namespace corvane::fakes {

/// An accessible object that the test fills. Simple elements are its `simple`
/// ones; they are numbered from 1 behind the objects.
class FakeAccessible : public Accessible, public std::enable_shared_from_this<FakeAccessible> {
 public:
  using Ptr = std::shared_ptr<FakeAccessible>;
  struct Facts {
    std::map<AccessibleText, std::string> texts;
    int role = 0;
    std::uint32_t state = 0;
    ScreenRect place;
  };

  static Ptr Make(const std::string& name, int role, const std::string& value = "") {
    auto made = std::make_shared<FakeAccessible>();
    made->facts.texts[AccessibleText::Name] = name;
    made->facts.texts[AccessibleText::Value] = value;
    made->facts.role = role;
    return made;
  }
  /// Adds a child object and returns it.
  const Ptr& Add(const Ptr& child) {
    child->parent = weak_from_this();
    objects.push_back(child);
    return objects.back();
  }

  std::string Text(AccessibleText which, AccessibleKid kid) const override {
    const auto& texts = Of(kid).texts;
    const auto at = texts.find(which);
    return at == texts.end() ? "" : at->second;
  }
  int Role(AccessibleKid kid) const override { return Of(kid).role; }
  std::uint32_t State(AccessibleKid kid) const override { return Of(kid).state; }
  int ChildCount() const override {
    Refuse();
    return static_cast<int>(objects.size() + simple.size()) + undelivered;
  }
  std::vector<AccessibleElement> Children(int most) const override {
    Refuse();
    ++asked_for_children;
    if (slow) return {};
    auto children = AllChildren();
    if (static_cast<int>(children.size()) > most) children.resize(static_cast<std::size_t>(most));
    return children;
  }
  std::vector<AccessibleElement> AllChildren() const {
    std::vector<AccessibleElement> children;
    for (const auto& object : objects) children.push_back({object, {}});
    for (const auto& each : simple) children.push_back({nullptr, each.first});
    return children;
  }
  AccessiblePtr Child(std::int32_t kid) const override {
    const auto at = own_objects.find(kid);
    if (at == own_objects.end()) throw RunTimeError(kErrTypeMismatch, "", "No object of its own");
    return at->second;
  }
  AccessiblePtr Parent() const override {
    Refuse();
    return parent.lock();
  }
  ScreenRect Location(AccessibleKid kid) const override { return Of(kid).place; }
  void Select(int flags, AccessibleKid kid) override {
    Refuse();
    journal->push_back("select " + std::to_string(flags) + " " + Words(kid));
  }
  void DoDefaultAction(AccessibleKid kid) override {
    Refuse();
    journal->push_back("do " + Words(kid));
  }
  WindowHandle Window() const override {
    Refuse();
    return window;
  }

  Facts facts;
  std::map<std::int32_t, Facts> simple;
  std::map<std::int32_t, Ptr> own_objects;  ///< what Child answers
  std::vector<Ptr> objects;
  std::weak_ptr<FakeAccessible> parent;
  WindowHandle window = 0;
  bool slow = false;     ///< its children cannot be told at once
  int undelivered = 0;   ///< children that are counted and then are not there
  bool refuses = false;  ///< nothing is answered any more
  std::shared_ptr<std::vector<std::string>> journal = std::make_shared<std::vector<std::string>>();
  mutable int asked_for_children = 0;

 private:
  void Refuse() const {
    if (refuses) throw RunTimeError(kErrDeviceIo, "", "Not implemented");
  }
  const Facts& Of(AccessibleKid kid) const {
    Refuse();
    if (!kid) return facts;
    return simple.at(*kid);
  }
  std::string Words(AccessibleKid kid) const {
    return Text(AccessibleText::Name, kid) + (kid ? " " + std::to_string(*kid) : "");
  }
};

/// A desktop's accessibility that the test fills. What is fetched is there when
/// the test says so.
class FakeAccessibility : public Accessibility {
 public:
  Connection Fetch(const std::vector<WindowHandle>& windows, Depth asked,
                   std::function<void()> done) override {
    Refuse();
    depth = asked;
    fetched.push_back(windows);
    pending = std::make_shared<std::function<void()>>(std::move(done));
    return Connection([mine = pending] { *mine = nullptr; });
  }
  Connection FetchChildren(
      const AccessiblePtr& parent, int from, int most,
      std::function<void(const std::vector<AccessibleElement>&)> done) override {
    Refuse();
    pieces.push_back({from, most});
    pending = std::make_shared<std::function<void()>>([parent, from, most, done = std::move(done)] {
      auto children = std::dynamic_pointer_cast<FakeAccessible>(parent)->AllChildren();
      children.erase(children.begin(), std::min(children.begin() + from, children.end()));
      if (static_cast<int>(children.size()) > most) {
        children.resize(static_cast<std::size_t>(most));
      }
      done(children);
    });
    return Connection([mine = pending] { *mine = nullptr; });
  }
  /// What was asked for has arrived.
  void Arrive() {
    const auto arrived = std::exchange(pending, nullptr);
    if (!arrived || !*arrived) return;
    const auto done = *arrived;  // which may ask again
    done();
  }

  AccessiblePtr ObjectFromWindow(WindowHandle window, std::int32_t id) override {
    Refuse();
    const auto at = objects.find({window, id});
    return at == objects.end() ? nullptr : at->second;
  }
  AccessibleElement ObjectFromPoint(ScreenPoint point) override {
    Refuse();
    const auto at = points.find({point.x, point.y});
    return at == points.end() ? AccessibleElement{} : at->second;
  }
  ScreenPoint CursorPos() const override { return cursor; }
  ScreenPoint CaretPos() const override { return caret; }
  std::string RoleText(int role) const override {
    Refuse();
    const auto at = roles.find(role);
    return at == roles.end() ? "" : at->second;
  }

  std::map<std::pair<WindowHandle, std::int32_t>, AccessiblePtr> objects;
  std::map<std::pair<int, int>, AccessibleElement> points;
  ScreenPoint cursor;
  ScreenPoint caret;
  std::map<int, std::string> roles = {{9, "window"},         {15, "document"},   {18, "dialog"},
                                      {30, "link"},          {40, "graphic"},    {41, "text"},
                                      {42, "editable text"}, {43, "push button"}};
  std::vector<std::vector<WindowHandle>> fetched;  ///< every request
  Depth depth = Depth::All;                        ///< of the last one
  std::vector<std::pair<int, int>> pieces;         ///< of children: from, how many
  std::shared_ptr<std::function<void()>> pending;
  bool refuses = false;

 private:
  void Refuse() const {
    if (refuses) throw RunTimeError(kErrDeviceIo, "", "No accessibility");
  }
};

}  // namespace corvane::fakes
