#pragma once

#include <string>
#include <vector>

class PDFDoc;

namespace corvane::pdf {

/// A rectangle on a page as it is shown: points from its upper left corner.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  void Add(const Box& other);
};

/// To what a piece of a page's content belongs, where its author says it.
inline constexpr int kUntagged = -1;
inline constexpr int kArtifact = -2;  ///< running headers, page numbers, ornaments

/// A word as it is shown.
struct Word {
  std::string text;
  Box box;
  double size = 0;           ///< of its letters, in points
  int order = 0;             ///< place in the page's content, which counts up
  int tag = kUntagged;       ///< number of the marked content that it belongs to
  int line = 0;              ///< counts up through the page
  int block = 0;             ///< of lines; counts up through the page
  int link = -1;             ///< in Page::links
  bool blank_after = false;  ///< towards the next word of its line
};

/// Where a link leads, or an entry of the outline.
struct Target {
  std::string address;  ///< of the network; empty for a place in the document
  int page = 0;         ///< from 1 on; 0: nowhere
  double top = 0;       ///< of the place on that page, in points

  bool IsPlace() const { return address.empty() && page > 0; }
};

/// A page's words in reading order, and what else is known of it.
struct Page {
  std::vector<Word> words;
  std::vector<Target> links;
  double height = 0;
  bool has_picture = false;  ///< looked up for pages without words only
};

/// Reads the page with that number, from 1 on. A page that is broken has no words.
/// `base`: the document's own address.
Page ReadPage(PDFDoc& document, int number, const std::string& base);

}  // namespace corvane::pdf
