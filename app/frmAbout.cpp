#include "app/frmAbout.h"

#include "app/Version.h"
#include "base/handling.h"
#include "base/text.h"
#include "platform/errors_shown.h"
#include "platform/image.h"
#include "platform/line.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr const char* kCaption = "About Corvane 2000";
constexpr const char* kProduct = "Corvane 2000";
constexpr const char* kSeries = "Corvane, a talking web browser";
constexpr const char* kPlatform = "For Microsoft Windows 9x/NT/2000, ";
constexpr const char* kRights =
    "Free software under the GNU General Public License, version 3 or later";
constexpr const char* kContact = "The Corvane developers";
constexpr const char* kLineEnd = "\r\n";
// What each field is called for other readers.
constexpr std::array kFieldNames = {"Product", "Description", "Version", "Rights", "Contact"};
constexpr float kWidth = 8400;  // twips
constexpr float kHeight = 3600;

// No point stands between minor version and revision.
std::string EstablishedPlatform() {
  return kPlatform + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) +
         std::to_string(kVersionRevision);
}

std::string TodaysPlatform(const Desktop& desktop) {
  return "For " + desktop.Name() + ", version " + std::to_string(kVersionMajor) + "." +
         std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision);
}

}  // namespace

frmAbout::frmAbout(Desktop& desktop, const Manner& manner)
    : desktop_(desktop),
      ELAMain_(desktop.CreateElasticFrame("ELAAbout")),
      ELATop_(desktop.CreateElasticFrame("ELATop")),
      ELATexts_(desktop.CreateElasticFrame("ELATexts")),
      Image1_(desktop.CreateImage("Image1")),
      Line1_(desktop.CreateLine("Line1")),
      OK_(desktop.CreateCommandButton("OK")),
      form_(desktop.CreateForm("frmAbout")) {
  for (std::size_t i = 0; i < kFields; ++i) {
    Text_[i] = desktop.CreateTextBox("Text" + std::to_string(i + 1));
    connections_ += Text_[i]->GotFocus.Connect([this, i] { Text_GotFocus(i); });
    // Enter means OK wherever it is pressed, as in every dialog.
    connections_ += Text_[i]->KeyPress.Connect([this](int& KeyAscii) {
      if (KeyAscii == kKeyReturn) OK_Click();
    });
  }
  connections_ += OK_->GotFocus.Connect([this] { OK_GotFocus(); });
  connections_ += OK_->Click.Connect([this] { OK_Click(); });
  connections_ += form_->KeyDown.Connect([this](KeyEvent& key) { form_KeyDown(key); });
  connections_ += form_->Unload.Connect([this] { Form_Unload(); });
  Form_Load(manner);
}

frmAbout::~frmAbout() = default;

void frmAbout::Form_Load(const Manner& manner) {
  form_->SetCaption(kCaption);
  form_->SetWidth(kWidth);
  form_->SetHeight(kHeight);
  ELAMain_->SetLayout(ElasticFrame::Layout::Above);
  ELAMain_->SetAlign(ElasticFrame::Align::Fill);
  ELATop_->SetLayout(ElasticFrame::Layout::SideBySide);
  ELATop_->SetAlign(ElasticFrame::Align::Fill);
  ELATexts_->SetLayout(ElasticFrame::Layout::Above);
  ELATexts_->SetAlign(ElasticFrame::Align::Fill);
  Image1_->SetPicture(Image::Picture::Program);
  ELATop_->Add(*Image1_);
  ELATop_->Add(*ELATexts_);
  ELAMain_->Add(*ELATop_);
  ELAMain_->Add(*Line1_);
  const std::array<std::string, kFields> texts = {
      kProduct, kSeries, manner.today ? TodaysPlatform(desktop_) : EstablishedPlatform(), kRights,
      kContact};
  for (std::size_t i = 0; i < kFields; ++i) {
    Text_[i]->SetText(texts[i]);
    Text_[i]->SetAccessibleName(kFieldNames.at(i));
    ELATexts_->Add(*Text_[i]);
  }
  OK_->SetCaption("OK");
  ELAMain_->Add(*OK_);
  form_->SetContent(*ELAMain_);
}

void frmAbout::ShowModal(Form& owner) {
  form_->SetLeft(owner.Left() + (owner.Width() - kWidth) / 2);
  form_->SetTop(owner.Top() + (owner.Height() - kHeight) / 2);
  form_->ShowModal(&owner);
  OK_->SetFocus();
}

void frmAbout::Text_GotFocus(std::size_t index) {
  Required(service_).Say(Text_.at(index)->Text(), false);
}

void frmAbout::OK_GotFocus() {
  ErrorsShown(desktop_.GetMessageBox(), "OKGotFocus Error: ", [&] {
    if (blnRead_) {
      Required(service_).Say(text::replace_all(OK_->Caption(), "&", ""), false);
      return;
    }
    blnRead_ = true;
    Required(service_).Say(AllWords(), true);
  });
}

std::string frmAbout::AllWords() const {
  std::string all;
  for (std::size_t i = 0; i + 1 < kFields; ++i) all += Text_[i]->Text() + kLineEnd;
  return all + Text_[kFields - 1]->Text() + "O.K. button";
}

// As in every dialog.
void frmAbout::form_KeyDown(KeyEvent& key) {
  if (key.KeyCode != kKeyF1 || key.Shift != 0) return;
  key.KeyCode = 0;
  ErrorsIgnored([&] { Required(service_).Say(AllWords(), true); });
}

void frmAbout::OK_Click() {
  service_.reset();
  form_->Close(Form::UnloadMode::Code);
}

void frmAbout::Form_Unload() {
  service_.reset();
  if (const auto gone = unloaded) gone();
}

}  // namespace corvane
