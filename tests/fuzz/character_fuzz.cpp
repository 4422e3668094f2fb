#include <unistd.h>

#include <fstream>

#include "base/error.h"
#include "platform/linux/speech/character_file.h"
#include "tests/fuzz/fuzz.h"

// talker.acf, which a user may have from anywhere.
void FuzzOne(const std::string& input) {
  static const std::string file = "/dev/shm/corvane-fuzz-" + std::to_string(getpid()) + ".acf";
  std::ofstream(file, std::ios::binary) << input;
  try {
    const auto character = corvane::desktop::ReadCharacterFile("Genie", file);
    Promise(!character.name.empty() && !character.voice.empty());
    Promise(character.pitch_shift >= -80 && character.pitch_shift <= 80);
    Promise(character.speed_shift >= -200 && character.speed_shift <= 200);
  } catch (const corvane::RunTimeError& refused) {
    Promise(!refused.Description().empty());
  }
  unlink(file.c_str());
}
