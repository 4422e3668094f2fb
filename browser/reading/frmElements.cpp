#include "browser/reading/frmElements.h"

#include <algorithm>

#include "base/count.h"
#include "base/number.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr const char* kCaption = "Elements of the page";
constexpr float kWidth = 9000;  // twips
constexpr float kHeight = 6000;
constexpr int kTyping = 700;  // milliseconds without a key that end what is typed

}  // namespace

frmElements::frmElements(PaneContext& pane, const TextMap& map)
    : pane_(pane),
      map_(map),
      ELAMain_(pane.desktop.CreateElasticFrame("ELAElements")),
      txtTyped_(pane.desktop.CreateTextBox("txtTyped")),
      ELALists_(pane.desktop.CreateElasticFrame("ELALists")),
      trvKinds_(pane.desktop.CreateTreeView("trvKinds")),
      trvElements_(pane.desktop.CreateTreeView("trvElements")),
      timTyped_(pane.desktop.CreateTimer()),
      form_(pane.desktop.CreateForm("frmElements")) {
  timTyped_->SetInterval(kTyping);
  connections_ += timTyped_->Tick.Connect([this] { SayHowMany(); });
  connections_ += form_->KeyDown.Connect([this](KeyEvent& key) { KeyDown(key); });
  connections_ += form_->Unload.Connect([this] {
    if (const auto gone = closed) gone(choice_);
  });
  for (TreeView* tree : {trvKinds_.get(), trvElements_.get()}) {
    connections_ += tree->KeyPress.Connect([this](int& character) { KeyPress(character); });
  }
  connections_ +=
      trvKinds_->GotFocus.Connect([this] { pane_.announcer.Say("Kind, " + NameOf(list_)); });
  connections_ += trvKinds_->NodeClick.Connect([this](TreeNode& node) { KindChosen(node); });
  connections_ += trvElements_->GotFocus.Connect([this] { SayAll(); });
  connections_ +=
      trvElements_->NodeClick.Connect([this](TreeNode&) { pane_.announcer.Say(EntryWords()); });
  connections_ += trvElements_->Toggled.Connect([this](TreeNode& node) {
    pane_.announcer.Say(node.Text() + (node.Expanded() ? " Opened" : " Closed"));
  });
  connections_ += trvElements_->DblClick.Connect([this] { Choose(false); });
  Lay();
}

void frmElements::Lay() {
  form_->SetCaption(kCaption);
  form_->SetWidth(kWidth);
  form_->SetHeight(kHeight);
  ELAMain_->SetLayout(ElasticFrame::Layout::Above);
  ELAMain_->SetAlign(ElasticFrame::Align::Fill);
  ELALists_->SetLayout(ElasticFrame::Layout::SideBySide);
  ELALists_->SetAlign(ElasticFrame::Align::Fill);
  ELALists_->Add(*trvKinds_);
  ELALists_->Add(*trvElements_);
  ELAMain_->Add(*txtTyped_);
  ELAMain_->Add(*ELALists_);
  form_->SetContent(*ELAMain_);
  trvKinds_->SetAccessibleName("Kind");
  txtTyped_->SetAccessibleName("Typed");
  txtTyped_->SetEnabled(false);
}

void frmElements::ShowModal(Form& owner, ElementList list, int position) {
  wanted_ = list;
  position_ = position;
  list_ = WithElements(list);
  FillKinds();
  ShowKind(list_);
  form_->SetLeft(owner.Left() + (owner.Width() - kWidth) / 2);
  form_->SetTop(owner.Top() + (owner.Height() - kHeight) / 2);
  form_->ShowModal(&owner);
  trvElements_->SetFocus();
}

void frmElements::Close() { form_->Close(Form::UnloadMode::Code); }

// --- the lists -------------------------------------------------------------------------

void frmElements::FillKinds() {
  for (int i = 0; i < kElementLists; ++i) {
    TreeNode& node = trvKinds_->Add(nullptr, NameOf(static_cast<ElementList>(i)));
    node.SetTag(std::to_string(i));
    if (static_cast<ElementList>(i) == list_) trvKinds_->SetSelectedItem(&node);
  }
}

// A page that has none of the kind that is wanted is listed by one that it has.
ElementList frmElements::WithElements(ElementList wanted) const {
  const auto has = [this](ElementList list) {
    const auto& spans = map_.Page().spans;
    return std::any_of(spans.begin(), spans.end(),
                       [list](const PageSpan& span) { return BelongsTo(list, span); });
  };
  if (has(wanted)) return wanted;
  for (int i = 0; i < kElementLists; ++i) {
    if (has(static_cast<ElementList>(i))) return static_cast<ElementList>(i);
  }
  return wanted;
}

void frmElements::KindChosen(const TreeNode& node) {
  wanted_ = static_cast<ElementList>(number::leading(node.Tag()));
  ShowKind(wanted_);
  pane_.announcer.Say(NameOf(list_) + ", " + std::to_string(rows_.size()));
}

void frmElements::ShowKind(ElementList list) {
  list_ = list;
  elements_ = Listed(map_, list);
  trvElements_->SetAccessibleName(NameOf(list));
  typed_.clear();
  Fill();
  if (!rows_.empty()) Select(Nearest());
}

// A heading stands below the last one before it that is of a higher level.
void frmElements::Fill() {
  txtTyped_->SetText(typed_);
  rows_ = Narrowed(elements_, typed_);
  nodes_.clear();
  trvElements_->Clear();
  std::vector<std::pair<int, TreeNode*>> above;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const ListedElement& each = elements_[rows_[row]];
    while (!above.empty() && above.back().first >= each.level) above.pop_back();
    TreeNode* parent = above.empty() ? nullptr : above.back().second;
    TreeNode& node = trvElements_->Add(parent, each.words);
    node.SetTag(std::to_string(row));
    nodes_.push_back(&node);
    if (each.level > 0) above.emplace_back(each.level, &node);
  }
  for (TreeNode* node : nodes_) {
    if (node->Children() > 0) node->SetExpanded(true);
  }
}

// The last element that begins in front of the place, or there; else the first one.
std::size_t frmElements::Nearest() const {
  std::size_t row = 0;
  while (row + 1 < rows_.size() && elements_[rows_[row + 1]].start <= position_) ++row;
  return row;
}

void frmElements::Select(std::size_t row) { trvElements_->SetSelectedItem(nodes_[row]); }

std::optional<std::size_t> frmElements::SelectedRow() const {
  const TreeNode* node = trvElements_->SelectedItem();
  if (node == nullptr) return std::nullopt;
  return static_cast<std::size_t>(number::leading(node->Tag()));
}

// --- what is said ----------------------------------------------------------------------

std::string frmElements::EntryWords() const {
  const auto row = SelectedRow();
  if (!row) return "no " + text::lower(NameOf(list_));
  return elements_[rows_[*row]].words + ", " + std::to_string(*row + 1) + " of " +
         std::to_string(rows_.size());
}

void frmElements::SayAll() {
  std::string words = NameOf(list_);
  if (!typed_.empty()) words += " with " + typed_;
  pane_.announcer.Say(words + ", " + EntryWords());
}

void frmElements::SayHowMany() {
  timTyped_->SetEnabled(false);
  if (rows_.empty()) return;  // that has been said
  pane_.announcer.SayBehind(Counted(rows_.size(), "remains", "remain"));
}

// --- keys ------------------------------------------------------------------------------

void frmElements::KeyDown(KeyEvent& key) {
  if (key.KeyCode == kKeyReturn && (key.Shift == 0 || key.Shift == kCtrlMask)) {
    key.KeyCode = 0;
    return Choose(key.Shift == kCtrlMask);
  }
  if (key.Shift != 0) return;
  if (key.KeyCode == kKeyF1) {
    key.KeyCode = 0;
    SayAll();
  } else if (key.KeyCode == kKeyBackspace) {
    key.KeyCode = 0;
    if (!typed_.empty()) Narrow(text::left(typed_, text::length(typed_) - 1));
  }
}

void frmElements::KeyPress(int& character) {
  if (character < ' ' || (character == ' ' && typed_.empty())) return;
  const std::string typed = typed_ + text::character(character);
  character = 0;
  Narrow(typed);
}

// Of what is typed quickly no letter says more than what is first now.
void frmElements::Narrow(const std::string& typed) {
  typed_ = typed;
  Fill();
  if (!rows_.empty()) Select(typed_.empty() ? Nearest() : 0);
  const auto row = SelectedRow();
  pane_.announcer.Say(row ? elements_[rows_[*row]].words
                          : EntryWords() + (typed_.empty() ? "" : " with " + typed_));
  timTyped_->SetEnabled(false);
  timTyped_->SetEnabled(true);
}

void frmElements::Choose(bool act) {
  const auto row = SelectedRow();
  if (!row) return pane_.announcer.Say(EntryWords());
  choice_ = Choice{elements_[rows_[*row]].element, act};
  Close();
}

}  // namespace corvane
