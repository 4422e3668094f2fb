#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/fakes/fake_controls.h"

namespace corvane::fakes {

/// A rendering control that goes nowhere by itself: the test begins, finishes
/// and fills pages.
class FakeWebBrowser : public FakeControl<WebBrowser> {
 public:
  using FakeControl::FakeControl;

  void Navigate2(const std::string& url) override { Note("Navigate2 " + url); }
  bool GoToPlace(const std::string& url) override {
    const bool is_here =
        document && url.find('#') != std::string::npos && url.starts_with(document->location + "#");
    if (is_here) Note("GoToPlace " + url);
    return is_here;
  }
  void GoBack() override { Note("GoBack"); }
  void GoForward() override { Note("GoForward"); }
  void GoHome() override { Note("GoHome"); }
  void Stop() override { Note("Stop"); }
  void Refresh() override { Note("Refresh"); }
  void Do(PageCommand command) override { Note("Do " + std::to_string(static_cast<int>(command))); }
  void ExecWB(Command command, CommandOption option) override {
    Note("ExecWB " + std::to_string(command) + " " + std::to_string(option));
  }
  std::string LocationURL() const override { return location_url; }
  std::string LocationName() const override { return location_name; }
  bool Busy() const override { return busy; }
  bool StayedOnPage() const override { return stayed; }
  HTMLDocumentPtr Document() const override { return document; }
  Connection Describe(std::function<void(const HTMLDocumentPtr&)> done) override {
    if (!describes_later) {
      done(document);
      return {};
    }
    describing = std::make_shared<std::function<void(const HTMLDocumentPtr&)>>(std::move(done));
    return Connection([mine = describing] { *mine = nullptr; });
  }
  void TellFocus() override { ++focus_asked; }
  HTMLElementPtr FocusedElement() const override { return focused; }
  Connection DescribeText(std::function<void(const PageTextPtr&)> done) override {
    describing_text = std::make_shared<std::function<void(const PageTextPtr&)>>(std::move(done));
    return Connection([mine = describing_text] { *mine = nullptr; });
  }
  void UseElement(const PageElement& element, ElementUse use) override {
    static constexpr const char* kUses[] = {"Use ", "Enter ", "Follow ", "Show "};
    Note(kUses[static_cast<int>(use)] + std::to_string(element.number));
  }
  void ShowWords(const PageElement& near, const std::string& words) override {
    Note("Show words " + std::to_string(near.number) + " " + words);
  }
  bool EnterDialog(std::function<void()> gone) override {
    if (!std::exchange(dialog_waits, false)) return false;
    dialog_gone = std::move(gone);
    return true;
  }
  bool OpenedByPage() const override { return opened_by_page; }
  bool MayClose() override {
    Note("MayClose");
    return may_close;
  }

  /// What was asked for comes: the page as it is now.
  void Described(const HTMLDocumentPtr& page) {
    const auto wanted = std::exchange(describing, nullptr);
    if (wanted && *wanted) (*wanted)(page);
  }

  /// The same for its text; nothing happens when it is not asked for.
  void TextDescribed(const PageTextPtr& text) {
    const auto wanted = std::exchange(describing_text, nullptr);
    if (wanted && *wanted) (*wanted)(text);
  }

  /// The page begins to load.
  void Begin() {
    busy = true;
    DownloadBegin.Raise();
  }
  /// The page is complete with this document.
  void Finish(HTMLDocumentPtr page) {
    document = std::move(page);
    location_url = document ? document->location : "";
    location_name = document ? document->Title : "";
    busy = false;
    DownloadComplete.Raise();
  }

  std::vector<std::string> calls;
  std::string location_url;
  std::string location_name;
  bool busy = false;
  bool stayed = false;
  bool opened_by_page = false;
  bool may_close = true;
  HTMLElementPtr focused;             ///< FocusedElement
  int focus_asked = 0;                ///< calls of TellFocus
  bool dialog_waits = false;          ///< for EnterDialog
  std::function<void()> dialog_gone;  ///< given to it
  HTMLDocumentPtr document;
  bool describes_later = false;  ///< descriptions wait for Described
  std::shared_ptr<std::function<void(const HTMLDocumentPtr&)>> describing;
  std::shared_ptr<std::function<void(const PageTextPtr&)>> describing_text;

 private:
  void Note(const std::string& call) {
    Work();
    calls.push_back(call);
  }
};

/// A page with a title, text and links (text, address).
inline HTMLDocumentPtr MakePage(
    const std::string& location, const std::string& title, const std::string& body,
    const std::vector<std::pair<std::string, std::string>>& links = {}) {
  auto page = std::make_shared<HTMLDocument>();
  page->location = location;
  page->Title = title;
  page->nameProp = title;
  page->has_body = true;
  page->body_innerText = body;
  for (const auto& [words, address] : links) {
    auto link = std::make_shared<HTMLElement>();
    link->type_name = "HTMLAnchorElement";
    link->innerText = words;
    link->href = address;
    page->links.push_back(link);
  }
  return page;
}

}  // namespace corvane::fakes
