#include "platform/linux/pdf/node.h"

namespace corvane::pdf {

std::string WordsOf(const Node& node) {
  std::string words;
  ForEach(node, [&](const Node& each) {
    if (each.kind == Node::Kind::Text) words += each.text;
  });
  return words;
}

}  // namespace corvane::pdf
