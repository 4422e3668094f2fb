#include "platform/linux/pdf/layout.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <map>

#include "platform/linux/pdf/text_maker.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

constexpr double kOtherSize = 0.12;  // by so much letters of another size differ
constexpr double kIndent = 0.8;      // of the letters' size
constexpr double kWiderGap = 1.35;   // than between the lines of the block
constexpr double kShortLine = 0.8;   // of the block's width
constexpr double kLevel = 0.35;      // by less of the letters' size lines on one level differ
constexpr double kWidestGap = 5;     // of the letters' size, between a sign and its line
constexpr std::size_t kLongestSign = 8;
constexpr const char* kOfSigns =
    "0123456789.()abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

struct Line {
  std::vector<const Word*> words;
  Box box;
  double size = 0;
  bool begins = false;  // a paragraph
  bool ends = false;    // its paragraph
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

// The dots between an entry and its page are for the eye.
void TakeDotsAway(Line& line) {
  std::vector<const Word*> kept;
  const auto end = line.words.end();
  for (auto at = line.words.begin(); at != end;) {
    const auto next = std::find_if(at, end, [](const Word* word) { return DotsOf(*word) == 0; });
    std::size_t dots = 0;
    std::for_each(at, next, [&](const Word* word) { dots += DotsOf(*word); });
    if (dots < kFewestDots) {
      kept.insert(kept.end(), at, next);
    } else {
      line.ends = true;
    }
    if (next == end) break;
    kept.push_back(*next);
    at = next + 1;
  }
  if (!kept.empty()) line.words = std::move(kept);
}

bool IsBullet(const std::string& text) {
  static constexpr std::string_view kBullets[] = {"\u2022", "\u2023", "\u25AA", "\u25AB", "\u25A0",
                                                  "\u25CB", "\u25CF", "\u25E6", "\u2219", "\u2713"};
  return std::find(std::begin(kBullets), std::end(kBullets), text) != std::end(kBullets);
}

/// Whether it is what stands before the entries of a list: "3.1", "(b)", "iv."
bool IsSign(const Line& line) {
  if (line.words.size() != 1) return false;
  const std::string& text = line.words.front()->text;
  if (IsBullet(text)) return true;
  if (text.size() > kLongestSign || text.find_first_not_of(kOfSigns) != std::string::npos) {
    return false;
  }
  const auto letters =
      std::count_if(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0; });
  return letters <= 1 || text.ends_with('.') || text.ends_with(')');
}

/// The line right beside the sign, or null.
Line* LineBeside(const Line& sign, std::vector<Block>& blocks) {
  Line* nearest = nullptr;
  for (Block& block : blocks) {
    for (Line& line : block) {
      const bool level = std::abs(line.box.bottom - sign.box.bottom) < kLevel * sign.size;
      const double gap = line.box.left - sign.box.right;
      if (!level || gap < 0 || gap > kWidestGap * sign.size) continue;
      if (nearest == nullptr || line.box.left < nearest->box.left) nearest = &line;
    }
  }
  return nearest;
}

// Signs that lie in a column of their own belong to the lines beside them.
void JoinSigns(std::vector<Block>& blocks) {
  for (Block& block : blocks) {
    if (!std::all_of(block.begin(), block.end(), IsSign)) continue;
    std::erase_if(block, [&](const Line& sign) {
      Line* line = LineBeside(sign, blocks);
      if (line == nullptr || line == &sign) return false;
      line->words.insert(line->words.begin(), sign.words.begin(), sign.words.end());
      line->begins = true;
      return true;
    });
  }
  std::erase_if(blocks, [](const Block& block) { return block.empty(); });
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
  if (line.ends || next.begins || IsBullet(next.words.front()->text)) return true;
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
  std::vector<Block> blocks = BlocksOf(page, wanted);
  for (Block& block : blocks) std::for_each(block.begin(), block.end(), TakeDotsAway);
  JoinSigns(blocks);
  for (const Block& block : blocks) {
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
