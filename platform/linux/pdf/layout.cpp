#include "platform/linux/pdf/layout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

#include "platform/linux/pdf/text_maker.h"

namespace corvane::pdf {
namespace {

constexpr double kOtherSize = 0.12;  // by so much letters of another size differ
constexpr double kIndent = 0.8;      // of the letters' size
constexpr double kWiderGap = 1.35;   // than between the lines of the block
constexpr double kShortLine = 0.8;   // of the block's width

struct Line {
  std::vector<const Word*> words;
  Box box;
  double size = 0;
};

using Block = std::vector<Line>;

std::vector<Block> BlocksOf(const Page& page, const std::function<bool(const Word&)>& wanted) {
  std::vector<Block> blocks;
  int block = -1;
  int line = -1;
  for (const Word& word : page.words) {
    if (word.text.empty() || !wanted(word)) continue;
    if (word.block != block) {
      blocks.emplace_back();
      block = word.block;
      line = -1;
    }
    if (word.line != line) {
      blocks.back().push_back({{}, word.box, word.size});
      line = word.line;
    }
    Line& present = blocks.back().back();
    present.words.push_back(&word);
    present.box.Add(word.box);
    present.size = std::max(present.size, word.size);
  }
  return blocks;
}

double Step(const Line& line, const Line& next) { return next.box.bottom - line.box.bottom; }

/// What most lines of the block lie apart.
double StepOf(const Block& block) {
  std::vector<double> steps;
  for (std::size_t i = 1; i < block.size(); ++i) steps.push_back(Step(block[i - 1], block[i]));
  if (steps.empty()) return 0;
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) / 2);
  std::nth_element(steps.begin(), middle, steps.end());
  return *middle;
}

bool EndsSentence(const Line& line) {
  return std::string_view(".:!?").find(line.words.back()->text.back()) != std::string_view::npos;
}

bool IsApart(const Line& line, const Line& next, const Block& block, const Box& area, double step) {
  if (std::abs(line.size - next.size) > kOtherSize * std::max(line.size, next.size)) return true;
  if (block.size() > 2 && Step(line, next) > step * kWiderGap) return true;
  const double indent = kIndent * next.size;
  if (next.box.left > area.left + indent && line.box.left < area.left + indent) return true;
  const bool is_short = line.box.right < area.left + kShortLine * (area.right - area.left);
  return is_short && EndsSentence(line);
}

}  // namespace

std::vector<Node> Paragraphs(const Page& page, int number, Places& places,
                             const std::function<bool(const Word&)>& wanted) {
  std::vector<Node> paragraphs;
  TextMaker maker(places);
  for (const Block& block : BlocksOf(page, wanted)) {
    Box area = block.front().box;
    for (const Line& line : block) area.Add(line.box);
    const double step = StepOf(block);
    for (std::size_t i = 0; i < block.size(); ++i) {
      if (i == 0 || IsApart(block[i - 1], block[i], block, area, step)) {
        paragraphs.emplace_back().kind = Node::Kind::Paragraph;
        maker.Reset();
      }
      for (const Word* word : block[i].words) maker.Add(page, number, *word, paragraphs.back());
    }
  }
  return paragraphs;
}

}  // namespace corvane::pdf
