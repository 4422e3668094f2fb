#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/page_text.h"

namespace corvane::tests {

/// Makes the text of a page with elements in it, each found by its words.
class PageTextMaker {
 public:
  explicit PageTextMaker(std::string text) {
    page_->text = std::move(text);
    page_->length = static_cast<int>(text::length(page_->text));
    page_->documents = {"document"};
  }
  /// The next element, in the order of the text: its kind and its words, which begin
  /// where the one before began or later.
  PageTextMaker& Add(PageSpan::Kind kind, std::string_view words, int level = 0, int more = 0,
                     ElementFacts facts = {}) {
    const std::size_t found = page_->text.find(words, from_);
    from_ = found == std::string::npos ? from_ : found;
    PageSpan span;
    span.kind = kind;
    span.start = static_cast<int>(text::length(std::string_view(page_->text).substr(0, from_)));
    span.length = static_cast<int>(text::length(words));
    span.level = level;
    span.more = more;
    span.number = ++last_;
    if (!(facts == ElementFacts{})) span.facts = std::make_shared<ElementFacts>(std::move(facts));
    page_->spans.push_back(span);
    return *this;
  }
  /// A cell of the table that was added last; more of it may be changed in the answer.
  PageCell& Cell(std::string_view words, int row, int column, int rows = 1, int columns = 1) {
    auto& tables = page_->tables;
    if (!page_->spans.empty() && page_->spans.back().kind == PageSpan::Kind::Table) {
      tables.push_back({page_->spans.size() - 1, {}});
    }
    Add(PageSpan::Kind::Cell, words);
    PageCell cell;
    cell.span = page_->spans.size() - 1;
    cell.row = row;
    cell.column = column;
    cell.rows = rows;
    cell.columns = columns;
    return tables.back().cells.emplace_back(cell);
  }
  /// What is added next begins behind these words.
  PageTextMaker& Behind(std::string_view words) {
    from_ = page_->text.find(words, from_) + words.size();
    return *this;
  }
  PageTextPtr Make() const { return page_; }
  PageText& Page() { return *page_; }

 private:
  std::shared_ptr<PageText> page_ = std::make_shared<PageText>();
  std::size_t from_ = 0;  // bytes
  int last_ = 0;
};

}  // namespace corvane::tests
