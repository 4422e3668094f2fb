#include "base/text.h"
#include "platform/linux/speech/speech_tags.h"
#include "platform/linux/speech/speech_text.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;
using namespace corvane::desktop;

// Text from pages on its way to the synthesizer.
void FuzzOne(const std::string& input) {
  const TaggedText tagged = ReadSpeechTags(input);
  TextPieces pieces(tagged.text);
  for (std::string piece; pieces.Next(piece);) {
    Promise(text::valid(piece) == piece);
    Promise(text::length(piece) <= TextPieces::kMost);
    for (const char c : piece) Promise(static_cast<unsigned char>(c) >= ' ' || c == '\n');
  }
}
