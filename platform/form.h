#pragma once

#include <string>

#include "platform/control.h"
#include "platform/elastic_frame.h"
#include "platform/menu.h"
#include "platform/status_bar.h"

namespace corvane {

/// A top-level window. Created hidden. Lengths and positions are in twips. The
/// window registry (Windows) knows it from its creation to its destruction.
class Form {
 public:
  enum class WindowState { Normal, Minimized, Maximized };
  /// Who asks for the window to be unloaded.
  enum class UnloadMode { ControlMenu = 0, Code = 1 };

  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  virtual WindowHandle hwnd() const = 0;
  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;

  virtual float Left() const = 0;
  virtual void SetLeft(float twips) = 0;
  virtual float Top() const = 0;
  virtual void SetTop(float twips) = 0;
  virtual float Width() const = 0;
  virtual void SetWidth(float twips) = 0;
  virtual float Height() const = 0;
  virtual void SetHeight(float twips) = 0;
  virtual WindowState State() const = 0;
  /// Takes all of the screen that there is for windows. Before it is shown.
  virtual void FillScreen() = 0;

  virtual void SetMenu(Menu& menu) = 0;
  /// The frame that fills the window below the menu.
  virtual void SetContent(ElasticFrame& frame) = 0;
  virtual void SetStatusBar(StatusBar& bar) = 0;

  virtual bool Visible() const = 0;
  /// Shows the window and lets the user go on with the others.
  virtual void Show() = 0;
  /// Shows the window in front of `owner` (may be null), which takes no input
  /// until this one is hidden. Returns at once.
  virtual void ShowModal(Form* owner) = 0;
  virtual void Hide() = 0;
  /// Asks QueryUnload and, unless cancelled, raises Unload; the window is then
  /// off the screen for good.
  virtual void Close(UnloadMode mode) = 0;

  /// A key going down anywhere in the window, before the control that has the
  /// focus sees it. A handler that sets the code to 0 has used the key.
  Event<KeyEvent&> KeyDown;
  /// May set the flag to keep the window; raised before Unload.
  Event<bool&, UnloadMode> QueryUnload;
  /// The window goes. The listener may destroy the form from here.
  Event<> Unload;
};

}  // namespace corvane
