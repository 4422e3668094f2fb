#include "access/CWin32API.h"

#include "base/handling.h"
#include "base/pattern.h"
#include "base/text.h"

namespace corvane {
namespace {

constexpr std::size_t kTextBuffer = 255;  // one character is the terminator

}  // namespace

int CWin32API::FindWindow(WindowHandle hWndStart, const std::string& TitleToFind,
                          const std::string& ClassToFind, std::vector<WindowHandle>& lhWnd,
                          bool blnOnlyOne) {
  only_one_ = blnOnlyOne;
  if (list_ != nullptr) ErrorsIgnored([&] { list_->Clear(); });
  found_.clear();
  ErrorsIgnored([&] { Search(hWndStart, TitleToFind + "*", ClassToFind); });
  lhWnd = found_;
  return static_cast<int>(found_.size());
}

bool CWin32API::Search(WindowHandle parent, const std::string& title,
                       const std::string& class_name) {
  for (WindowHandle window = windows_.FirstChild(parent); window != 0;
       window = windows_.NextSibling(window)) {
    if (!Search(window, title, class_name)) return false;
    const std::string own = text::left(windows_.Text(window), kTextBuffer - 1);
    const std::string own_class = text::left(windows_.ClassName(window), kTextBuffer - 1);
    if (!pattern::matches(own, title) || !pattern::matches(own_class, class_name)) continue;
    found_.push_back(window);
    if (list_ != nullptr) ErrorsIgnored([&] { list_->AddItem(own); });
    if (only_one_) return false;
  }
  return true;
}

}  // namespace corvane
