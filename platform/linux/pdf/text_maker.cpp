#include "platform/linux/pdf/text_maker.h"

#include <algorithm>

#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

Node TextNode(const std::string& address, const std::string& language) {
  Node node;
  node.kind = Node::Kind::Text;
  node.address = address;
  node.language = language;
  return node;
}

void Measure(Node& node, int number, const Word& word) {
  if (node.page == 0) {
    node.page = number;
    node.top = word.box.top;
    node.bottom = word.box.bottom;
  } else if (node.page == number) {
    node.top = std::min(node.top, word.box.top);
    node.bottom = std::max(node.bottom, word.box.bottom);
  }
}

}  // namespace

void TextMaker::Add(const Page& page, int number, const Word& word, Node& node,
                    const std::string& language) {
  if (word.text.empty()) return;
  Measure(node, number, word);
  const std::string address =
      word.link < 0 ? "" : places_.AddressOf(page.links.at(static_cast<std::size_t>(word.link)));
  auto& texts = node.nodes;
  const auto is_text = [&] { return !texts.empty() && texts.back().kind == Node::Kind::Text; };
  const Joint joint = last_ == nullptr ? Joint::Nothing : JointOf(*last_, word);
  if (joint == Joint::Broken && is_text()) TakeHyphenAway(texts.back().text);
  bool blank = joint == Joint::Blank;
  const bool goes_on =
      is_text() && texts.back().address == address && texts.back().language == language;
  if (!goes_on) {
    // The blank belongs to neither of two links.
    if (blank && is_text() && texts.back().address.empty()) {
      texts.back().text += ' ';
      blank = false;
    } else if (blank && !address.empty()) {
      texts.push_back(TextNode("", language));
      texts.back().text = " ";
      blank = false;
    }
    texts.push_back(TextNode(address, language));
  }
  if (blank) texts.back().text += ' ';
  texts.back().text += word.text;
  last_ = &word;
}

}  // namespace corvane::pdf
