#include "platform/linux/pdf/page_words.h"

#include <Catalog.h>
#include <GfxState.h>
#include <OutputDev.h>
#include <PDFDoc.h>
#include <Page.h>
#include <TextOutputDev.h>
#include <UTF.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "platform/linux/pdf/page_links.h"
#include "platform/linux/pdf/word_text.h"

namespace corvane::pdf {
namespace {

constexpr double kPointsPerInch = 72;
constexpr int kMostForms = 50;  // that are looked into for pictures

/// Takes a page's letters together with the numbers of the marked content around them.
class Recorder : public OutputDev {
 public:
  Recorder() : text_(new TextPage(false)) {}
  ~Recorder() override { text_->decRefCnt(); }
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  const TextPage& Text() const { return *text_; }
  int TagAt(int order) const {
    const auto after = std::upper_bound(tags_.begin(), tags_.end(), order,
                                        [](int at, const auto& each) { return at < each.first; });
    return after == tags_.begin() ? kUntagged : std::prev(after)->second;
  }
  double Height() const { return height_; }

  bool upsideDown() override { return true; }
  bool useDrawChar() override { return true; }
  bool interpretType3Chars() override { return false; }
  bool needNonText() override { return false; }
  bool needCharCount() override { return true; }

  void startPage(int /*number*/, GfxState* state, XRef* /*xref*/) override {
    height_ = state == nullptr ? 0 : state->getPageHeight();
    text_->startPage(state);
  }
  void endPage() override {
    text_->endPage();
    text_->coalesce(false, 0, false);
  }
  void updateFont(GfxState* state) override { text_->updateFont(state); }
  void incCharCount(int count) override {
    text_->incCharCount(count);
    order_ += count;
  }
  void drawChar(GfxState* state, double x, double y, double dx, double dy, double /*origin_x*/,
                double /*origin_y*/, CharCode code, int bytes, const Unicode* letters,
                int count) override {
    if (replacing_) {
      if (!std::exchange(drawn_, true)) start_x_ = x, start_y_ = y;
      end_x_ = x + dx, end_y_ = y + dy;
      return;
    }
    text_->addChar(state, x, y, dx, dy, code, bytes, letters, count);
    order_ += bytes;
  }
  // Words stand here in place of what is drawn: ligatures, letters drawn as shapes.
  void beginActualText(GfxState* /*state*/, const GooString* words) override {
    if (replacing_ || words == nullptr) return;
    replacing_ = true;
    drawn_ = false;
    Unicode* letters = nullptr;
    const int count = TextStringToUCS4(words->toStr(), &letters);
    replacement_.assign(letters, letters + std::max(count, 0));
    gfree(letters);
  }
  void endActualText(GfxState* state) override {
    if (!std::exchange(replacing_, false) || !drawn_ || replacement_.empty()) return;
    text_->addChar(state, start_x_, start_y_, end_x_ - start_x_, end_y_ - start_y_, 0, 1,
                   replacement_.data(), static_cast<int>(replacement_.size()));
    order_ += 1;
  }
  void beginMarkedContent(const char* name, Dict* properties) override {
    int tag = open_.empty() ? kUntagged : open_.back();
    int number = -1;
    if (properties != nullptr && properties->lookupInt("MCID", nullptr, &number) && number >= 0) {
      tag = number;
    } else if (name != nullptr && std::string_view(name) == "Artifact") {
      tag = kArtifact;
    }
    open_.push_back(tag);
    Change();
  }
  void endMarkedContent(GfxState* /*state*/) override {
    if (open_.empty()) return;
    open_.pop_back();
    Change();
  }

 private:
  // No word goes on across the border: the step in the count keeps its halves apart.
  void Change() {
    text_->endWord();
    incCharCount(1);
    tags_.emplace_back(order_, open_.empty() ? kUntagged : open_.back());
  }

  TextPage* text_;                         // counts its references itself
  std::vector<std::pair<int, int>> tags_;  // from that place in the content on
  std::vector<int> open_;
  int order_ = 0;
  double height_ = 0;
  bool replacing_ = false;
  bool drawn_ = false;
  double start_x_ = 0, start_y_ = 0, end_x_ = 0, end_y_ = 0;
  std::vector<Unicode> replacement_;
};

bool HasPicture(Dict* resources, int& forms) {
  if (resources == nullptr) return false;
  const Object objects = resources->lookup("XObject");
  if (!objects.isDict()) return false;
  for (int i = 0; i < objects.dictGetLength(); ++i) {
    const Object object = objects.dictGetVal(i);
    if (!object.isStream()) continue;
    const Object kind = object.streamGetDict()->lookup("Subtype");
    if (kind.isName("Image")) return true;
    if (!kind.isName("Form") || --forms < 0) continue;
    const Object inner = object.streamGetDict()->lookup("Resources");
    if (inner.isDict() && HasPicture(inner.getDict(), forms)) return true;
  }
  return false;
}

Word WordOf(const TextWord& word, const Recorder& recorder) {
  Word made;
  std::vector<char32_t> letters;
  letters.reserve(static_cast<std::size_t>(word.getLength()));
  for (int i = 0; i < word.getLength(); ++i) letters.push_back(*word.getChar(i));
  made.text = WordText(letters);
  word.getBBox(&made.box.left, &made.box.top, &made.box.right, &made.box.bottom);
  made.size = word.getFontSize();
  made.order = word.getCharPos();
  made.tag = recorder.TagAt(made.order);
  made.blank_after = word.hasSpaceAfter();
  return made;
}

std::vector<Word> WordsOf(const Recorder& recorder) {
  std::vector<Word> words;
  int lines = 0;
  int blocks = 0;
  for (const auto* flow = recorder.Text().getFlows(); flow != nullptr; flow = flow->getNext()) {
    for (const auto* block = flow->getBlocks(); block != nullptr; block = block->getNext()) {
      for (const auto* line = block->getLines(); line != nullptr; line = line->getNext()) {
        std::vector<Word> of_line;
        for (const auto* word = line->getWords(); word != nullptr; word = word->getNext()) {
          of_line.push_back(WordOf(*word, recorder));
          of_line.back().line = lines;
          of_line.back().block = blocks;
        }
        PutInReadingOrder(of_line);
        std::move(of_line.begin(), of_line.end(), std::back_inserter(words));
        ++lines;
      }
      ++blocks;
    }
  }
  return words;
}

}  // namespace

void Box::Add(const Box& other) {
  left = std::min(left, other.left);
  top = std::min(top, other.top);
  right = std::max(right, other.right);
  bottom = std::max(bottom, other.bottom);
}

Page ReadPage(PDFDoc& document, int number, const std::string& base) {
  Page page;
  ::Page* source = document.getPage(number);
  if (source == nullptr || !source->isOk()) return page;
  Recorder recorder;
  source->display(&recorder, kPointsPerInch, kPointsPerInch, 0, false, true, false);
  page.height = recorder.Height();
  page.words = WordsOf(recorder);
  AddLinks(document, *source, base, page);
  if (page.words.empty()) {
    int forms = kMostForms;
    page.has_picture = HasPicture(source->getResourceDict(), forms);
  }
  return page;
}

}  // namespace corvane::pdf
