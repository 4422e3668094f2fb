#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_dialog.h"

namespace corvane::fakes {

/// A file dialog that the test closes, and that writes down what is done to it.
class FakeFileDialog : public FileDialog {
 public:
  static constexpr WindowHandle kDialog = 900;
  static constexpr WindowHandle kHookWindow = 901;

  /// What the test sees of the dialogs: the one shown last, and all calls.
  struct Script {
    bool shown = false;
    Kind kind = Kind::Open;
    OpenFileName record;
    std::function<void(const DialogMessage&)> hook;
    std::function<void(const Result&)> done;
    std::vector<std::string> calls;

    /// The user chooses a file, or the dialog fills the buffers like this.
    void Choose(const std::string& file, const std::string& title = "", int offset = 0) {
      record.file = file;
      record.file_title = title;
      record.file_offset = static_cast<std::int16_t>(offset);
      Close({true, 0, record});
    }
    void Cancel() { Close({}); }
    void Fail(std::int32_t error) { Close({false, error, {}}); }
    void Close(const Result& result) {
      shown = false;
      const auto call = std::exchange(done, nullptr);
      call(result);
    }
  };

  explicit FakeFileDialog(Script& script) : script_(script) {}
  ~FakeFileDialog() override { script_.shown = false; }

  void Show(Kind kind, const OpenFileName& record, std::function<void(const DialogMessage&)> hook,
            std::function<void(const Result&)> done) override {
    script_.shown = true;
    script_.kind = kind;
    script_.record = record;
    script_.hook = std::move(hook);
    script_.done = std::move(done);
  }
  WindowHandle Parent(WindowHandle window) const override {
    return window == kHookWindow ? kDialog : 0;
  }
  Rect WindowRect(WindowHandle window) const override {
    return window == kDialog || window == kHookWindow ? Rect{1, 2, 300, 200}
                                                      : Rect{100, 50, 800, 600};
  }
  void MoveWindow(WindowHandle window, const Rect& r) override {
    Note("Move " + std::to_string(window) + " to " + std::to_string(r.left) + "," +
         std::to_string(r.top) + " " + std::to_string(r.width) + "x" + std::to_string(r.height));
  }
  void HideControl(WindowHandle dialog, int control) override {
    Note("Hide " + std::to_string(control) + " of " + std::to_string(dialog));
  }
  void SetControlText(WindowHandle dialog, int control, const std::string& text) override {
    Note("Text " + std::to_string(control) + " of " + std::to_string(dialog) + ": " + text);
  }
  void OpenHelp(const std::string& file, int command, const std::string& topic) override {
    Note("Help " + file + " " + std::to_string(command) + " " + topic);
  }

 private:
  void Note(const std::string& call) { script_.calls.push_back(call); }

  Script& script_;
};

}  // namespace corvane::fakes
