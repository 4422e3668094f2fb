#pragma once

#include <memory>
#include <string>

#include "platform/linux/speech/character_file.h"

namespace corvane::desktop {

/// The character on the screen: its picture and, while it speaks, a balloon with
/// what it says, at the bottom right, above other windows and cut to their shape.
/// Never takes the focus, lets clicks through and keeps its size, so that it is in
/// nobody's way.
class CharacterWindow {
 public:
  /// Pictures that cannot be loaded are left out. Without a display nothing is shown.
  explicit CharacterWindow(const CharacterFile& character);
  ~CharacterWindow();
  CharacterWindow(const CharacterWindow&) = delete;
  CharacterWindow& operator=(const CharacterWindow&) = delete;

  void Show();
  /// The start of `text` stands in the balloon and the character speaks.
  void ShowSpeaking(const std::string& text);
  /// The balloon is empty and the character is idle.
  void ShowIdle();

 private:
  class Widgets;
  std::unique_ptr<Widgets> widgets_;
};

}  // namespace corvane::desktop
