#pragma once

#include <memory>
#include <string>

#include "platform/linux/gtk/widget_control.h"
#include "platform/linux/web/engine_view.h"
#include "platform/linux/web/web_engine.h"
#include "platform/web_browser.h"

namespace corvane::desktop {

/// The WebBrowser control over WebKitGTK.
class WebKitBrowser : public WidgetControl<WebBrowser> {
 public:
  WebKitBrowser(const std::string& name, WebEngine& engine, WindowTable& windows);

  Gtk::Widget& widget() override { return *widget_; }

  void Navigate2(const std::string& url) override { view_->Navigate(url); }
  bool GoToPlace(const std::string& url) override { return view_->GoToPlace(url); }
  void GoBack() override { view_->GoBack(); }
  void GoForward() override { view_->GoForward(); }
  void GoHome() override { view_->GoHome(); }
  void Stop() override { view_->Stop(); }
  void Refresh() override { view_->Refresh(); }
  void Do(PageCommand command) override { view_->Do(command); }
  void ExecWB(Command command, CommandOption option) override;

  std::string LocationURL() const override { return view_->LocationURL(); }
  std::string LocationName() const override { return view_->LocationName(); }
  bool Busy() const override { return view_->Busy(); }
  bool StayedOnPage() const override { return view_->StayedOnPage(); }
  HTMLDocumentPtr Document() const override { return view_->Document(); }
  Connection Describe(std::function<void(const HTMLDocumentPtr&)> described) override {
    return view_->Describe(std::move(described));
  }
  void TellFocus() override { view_->TellFocus(); }
  HTMLElementPtr FocusedElement() const override { return view_->FocusedElement(); }
  Connection DescribeText(std::function<void(const PageTextPtr&)> described) override {
    return view_->DescribeText(std::move(described));
  }
  void UseElement(const PageElement& element, ElementUse use) override {
    view_->UseElement(element, use);
  }
  void ShowWords(const PageElement& near, const std::string& words) override {
    view_->ShowWords(near, words);
  }
  bool EnterDialog(std::function<void()> gone) override {
    return view_->EnterDialog(std::move(gone));
  }
  /// Whether keys that are typed now go into a field whose text is hidden.
  bool InPassword() const { return view_->InPassword(); }
  bool OpenedByPage() const override { return view_->OpenedByPage(); }
  bool MayClose() override { return view_->MayClose(); }

 private:
  /// Whether the user is in the window that shows the page.
  bool IsInFront() const;

  std::unique_ptr<EngineView> view_;
  Gtk::Widget* widget_ = nullptr;
  Delay take_over_;
};

}  // namespace corvane::desktop
