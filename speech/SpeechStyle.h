#pragma once

namespace corvane {

/// Whose words something is.
enum class Whose {
  Anybody,  ///< a page's, or what the program says of it
  Program,  ///< the program's own, where a page must not be taken for it
};

/// What a sound of the program's stands for; its words are those that it is said by.
enum class Sign { None, Working, Done };

/// How something is to sound; 0 is the voice's own.
struct SpeechStyle {
  int pitch = 0;
  int speed = 0;  ///< words a minute
  Whose whose = Whose::Anybody;
  Sign sign = Sign::None;
};

/// What the five steps of the rate and pitch menus mean, 0 to 4, around what is chosen.
constexpr int SpeedOf(int rate) { return rate * 50 + 50; }
constexpr int PitchOf(int pitch) { return pitch * 20 + 50; }

}  // namespace corvane
