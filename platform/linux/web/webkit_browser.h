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

  void Navigate2(const std::string& url) override { page_->Navigate(url); }
  bool GoToPlace(const std::string& url) override { return page_->GoToPlace(url); }
  void GoBack() override { page_->GoBack(); }
  void GoForward() override { page_->GoForward(); }
  void GoHome() override { page_->GoHome(); }
  void Stop() override { page_->Stop(); }
  void Refresh() override { page_->Refresh(); }
  void Do(PageCommand command) override { page_->Do(command); }
  void ExecWB(Command command, CommandOption /*option*/) override {
    if (command == OLECMDID_SAVEAS) page_->Save();
    if (command == OLECMDID_PRINT) page_->Print();
  }

  std::string LocationURL() const override { return page_->LocationURL(); }
  std::string LocationName() const override { return page_->LocationName(); }
  bool Busy() const override { return page_->Busy(); }
  bool StayedOnPage() const override { return page_->StayedOnPage(); }
  HTMLDocumentPtr Document() const override { return page_->Document(); }
  Connection Describe(std::function<void(const HTMLDocumentPtr&)> described) override {
    return page_->Describe(std::move(described));
  }
  void TellFocus() override { page_->TellFocus(); }
  HTMLElementPtr FocusedElement() const override { return page_->FocusedElement(); }
  Connection DescribeText(std::function<void(const PageTextPtr&)> described) override {
    return page_->DescribeText(std::move(described));
  }
  void UseElement(const PageElement& element, ElementUse use) override {
    page_->UseElement(element, use);
  }
  void ShowWords(const PageElement& near, const std::string& words) override {
    page_->ShowWords(near, words);
  }
  bool EnterDialog(std::function<void()> gone) override {
    return page_->EnterDialog(std::move(gone));
  }
  /// Whether keys that are typed now go into a field whose text is hidden.
  bool InPassword() const { return page_->InPassword(); }
  bool OpenedByPage() const override { return page_->OpenedByPage(); }
  bool MayClose() override { return page_->MayClose(); }

 private:
  std::unique_ptr<EngineView> view_;
  Browser* page_ = nullptr;  // of that view
  Gtk::Widget* widget_ = nullptr;
  Delay take_over_;
};

}  // namespace corvane::desktop
