#include "app/WindowDialogs.h"

#include <utility>

#include "app/frmAbout.h"
#include "controls/dwFileOpenSave.h"

namespace corvane {
namespace {

constexpr const char* kPageFilter = "HyperText Markup Language (*.htm,*.html)|*.htm*";
constexpr std::uint32_t kOpenFlags =
    kLongNames | kExplorerStyle | kFileMustExist | kEnableHook | kNoChangeDir | kHideReadOnly;
static_assert(kOpenFlags == 0x28102C);

}  // namespace

WindowDialogs::WindowDialogs(Desktop& desktop, Form& owner) : desktop_(desktop), owner_(owner) {}

WindowDialogs::~WindowDialogs() = default;

void WindowDialogs::OpenFile(std::function<void(const std::string& path)> chosen) {
  if (open_file_) return;
  open_file_ = std::make_unique<dwFileOpenSave>(desktop_);
  open_file_->SetDlgWindowOwner(owner_.hwnd());
  open_file_->SetDialogPosition = true;
  open_file_->SetFlags(kOpenFlags);
  open_file_->SetFilter(kPageFilter);
  open_file_->ShowOpen([this, chosen = std::move(chosen)](const auto&) {
    const auto dialog = std::move(open_file_);
    const std::string path = dialog->filename();
    if (!path.empty()) chosen(path);
  });
}

void WindowDialogs::ShowAbout(std::shared_ptr<MainApp> service) {
  if (about_) return;
  about_ = std::make_unique<frmAbout>(desktop_);
  about_->CallBackInit(std::move(service));
  about_->unloaded = [this] { about_.reset(); };
  about_->ShowModal(owner_);
}

}  // namespace corvane
