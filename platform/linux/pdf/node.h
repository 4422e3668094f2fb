#pragma once

#include <string>
#include <vector>

namespace corvane::pdf {

/// A piece of a document's text as it is to be read.
struct Node {
  enum class Kind {
    Group,  ///< nothing in itself
    Text,
    Paragraph,
    Heading,
    List,
    Item,
    Label,  ///< the sign before an item
    Table,
    Row,
    Cell,
    HeaderCell,
    Caption,
    Picture,
    Quotation,
    Note,
    Break,   ///< a page begins here, within what goes over its border
    Remark,  ///< a sentence of the program's own
  };

  Kind kind = Kind::Group;
  int level = 0;             ///< of a heading, 1 to 6
  int page = 0;              ///< where it begins; 0: nowhere
  double top = 0;            ///< on that page, in points
  double bottom = 0;         ///< of what begins there
  std::string text = {};     ///< Text: its words; Picture: what it shows
  std::string address = {};  ///< Text: where it leads; "#" and a name: in the document
  std::string language = {};
  std::string scope = {};  ///< HeaderCell: "row", "col"; or empty
  int columns = 1;
  int rows = 1;
  std::vector<std::string> places = {};  ///< names by which links lead here
  std::vector<Node> nodes = {};
};

/// What is written down of a document.
struct Written {
  std::string title;
  std::string language;
  int pages = 0;                    ///< of the document
  std::vector<std::string> labels;  ///< of its pages, as printed on them
  std::vector<bool> pictures;       ///< whether a page without words has a picture
  int read = 0;                     ///< as many pages are in `nodes`
  std::vector<Node> nodes;
};

/// All words below the node.
std::string WordsOf(const Node& node);

/// Calls `visit` for the node and all below it, in their order.
template <class N, class Visit>
void ForEach(N& node, const Visit& visit) {
  visit(node);
  for (auto& each : node.nodes) ForEach(each, visit);
}

}  // namespace corvane::pdf
