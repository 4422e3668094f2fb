#include "controls/ctlText.h"

#include <algorithm>

#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kPieceLength = 127;    // characters of one mirror entry
constexpr int kListResetThreshold = 101;     // entries at which the mirror starts anew
constexpr std::size_t kMirrorBound = 12700;  // no piece starts at or behind this position

}  // namespace

ctlText::ctlText(Desktop& desktop, const std::string& name, const Manner& manner)
    : desktop_(desktop),
      manner_(manner),
      frame_(desktop.CreateElasticFrame(name)),
      Text1_(desktop.CreateRichTextBox("Text1")),
      List1_(desktop.CreateListBox("List1")),
      lngTextWindow_(Text1_->hwnd()) {
  connections_ += Text1_->KeyPress.Connect([this](int& KeyAscii) { KeyPress.Raise(KeyAscii); });
  connections_ += Text1_->KeyDown.Connect([this](KeyEvent& key) { KeyDown.Raise(key); });
  connections_ += Text1_->KeyUp.Connect([this](KeyEvent& key) { KeyUp.Raise(key); });
  connections_ += Text1_->SelChange.Connect([this] { SelChange.Raise(); });
  connections_ += frame_->GotFocus.Connect([this] { SetFocus(); });
  connections_ += frame_->RealignFrame.Connect([this] { UserControl_Resize(); });
  List1_->SetAccessibleName("Latest text");
  frame_->Add(*Text1_);
  frame_->Add(*List1_);
  UserControl_Resize();
}

void ctlText::AddText(const std::string& strText, const bool& blnMoveCur,
                      const std::function<void()>& appended) {
  if (strText.empty()) return;
  if (blnMoveCur && manner_.keep_place) {
    ErrorsIgnored([&] { Text1_->Append(strText); });
  } else {
    Insert(strText, blnMoveCur);
  }
  if (appended) ErrorsIgnored(appended);
  Mirror(strText);
}

void ctlText::Insert(const std::string& strText, bool move_caret) {
  int end = 0;
  ErrorsIgnored([&] { end = Text1_->TextLength(); }, [&] { Text1_->SetSelStart(end); },
                [&] { Text1_->SetSelText(strText); });
  if (move_caret) {
    ErrorsIgnored([&] { Text1_->SetSelStart(Text1_->TextLength()); });
  } else {
    ErrorsIgnored([&] { Text1_->SetSelStart(end); }, [&] { Text1_->SetSelText(""); });
  }
}

// The loop's test is strict on purpose: the last character of a text whose
// length is one more than a multiple of the piece length is not mirrored.
void ctlText::Mirror(const std::string& strText) {
  ErrorsIgnored([&] {
    if (List1_->ListCount() >= kListResetThreshold) List1_->Clear();
  });
  const std::size_t length = text::length(strText);
  std::size_t offset = 0;
  std::size_t p = 1;
  do {
    const std::size_t next = text::offset_of(strText, kPieceLength, offset);
    ErrorsIgnored([&] { List1_->AddItem(strText.substr(offset, next - offset)); },
                  [&] { List1_->SetListIndex(List1_->ListCount() - 1); });
    offset = next;
    p += kPieceLength;
    ErrorsIgnored([&] { desktop_.DoEvents(); });
  } while (p < length && p < kMirrorBound);
}

void ctlText::ClearText() {
  ErrorsIgnored([&] { Text1_->SetText(""); });
}

void ctlText::SaveFile(const std::string& bstrFilename,
                       std::optional<RichTextBox::FileFormat> vFlags) {
  ErrorsIgnored([&] {
    const FileSystem& files = desktop_.GetFileSystem();
    std::string path = files.ProgramFolder();
    if (path.empty() || path.back() != files.Separator()) path += files.Separator();
    Text1_->SaveFile(path + bstrFilename, vFlags.value_or(RichTextBox::FileFormat::Rtf));
  });
}

int ctlText::GetLineFromChar(int IChar) const {
  int line = 0;
  ErrorsIgnored([&] { line = Text1_->GetLineFromChar(IChar); });
  return line;
}

void ctlText::SetSelStrikeThru(bool on) {
  Write(&Format::strike_thru, on);
  PropertyChanged.Raise("SelStrikeThru");
}

void ctlText::SetSelTabCount(int count) {
  auto tabs = Read(&Format::tabs);
  tabs.resize(static_cast<std::size_t>(std::clamp(count, 0, 32767)));
  Write(&Format::tabs, tabs);
}

int ctlText::SelTabs(std::int16_t Index) const {
  const auto tabs = Read(&Format::tabs);
  return Index >= 0 && static_cast<std::size_t>(Index) < tabs.size()
             ? tabs[static_cast<std::size_t>(Index)]
             : 0;
}

void ctlText::SetSelTabs(std::int16_t Index, int twips) {
  auto tabs = Read(&Format::tabs);
  if (Index < 0 || static_cast<std::size_t>(Index) >= tabs.size()) return;
  tabs[static_cast<std::size_t>(Index)] = twips;
  Write(&Format::tabs, tabs);
}

void ctlText::SetForeColor(Color color) {
  const std::string saved = Text();
  SetText("");
  SetSelColor(color);
  SetText(saved);
}

// The box fills the control from its origin; the mirror goes out of sight.
void ctlText::UserControl_Resize() {
  const float width = frame_->Width();
  ErrorsIgnored([&] { Text1_->SetWidth(width); }, [&] { Text1_->SetHeight(frame_->Height()); },
                [&] { List1_->Move(2 * width, 2 * width); });
}

}  // namespace corvane
