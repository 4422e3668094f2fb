#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "base/manner.h"
#include "platform/desktop.h"

namespace corvane {

class MainApp;

/// The speaking about box. It speaks straight to the speech service, so it is
/// heard as long as any window has speech on.
class frmAbout {
 public:
  explicit frmAbout(Desktop& desktop, const Manner& manner = kEstablishedManner);
  ~frmAbout();
  frmAbout(const frmAbout&) = delete;
  frmAbout& operator=(const frmAbout&) = delete;

  /// The service to speak with; before Show.
  void CallBackInit(std::shared_ptr<MainApp> service) { service_ = std::move(service); }
  /// Shows the box over `owner`, with the focus on OK; returns at once.
  void ShowModal(Form& owner);
  /// The box has been closed; it may be destroyed from here.
  std::function<void()> unloaded;

 private:
  static constexpr std::size_t kFields = 5;

  void Form_Load(const Manner& manner);
  void Form_Unload();
  void Text_GotFocus(std::size_t index);
  void OK_GotFocus();
  void OK_Click();
  void form_KeyDown(KeyEvent& key);
  /// The whole box in one piece.
  std::string AllWords() const;

  Desktop& desktop_;
  std::shared_ptr<MainApp> service_;
  std::unique_ptr<ElasticFrame> ELAMain_;
  std::unique_ptr<ElasticFrame> ELATop_;    // icon and fields
  std::unique_ptr<ElasticFrame> ELATexts_;  // the fields
  std::unique_ptr<Image> Image1_;
  std::unique_ptr<Line> Line1_;
  std::array<std::unique_ptr<TextBox>, kFields> Text_;
  std::unique_ptr<CommandButton> OK_;
  std::unique_ptr<Form> form_;
  bool blnRead_ = false;  // the whole box has been read once
  Connections connections_;
};

}  // namespace corvane
