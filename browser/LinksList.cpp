#include "browser/LinksList.h"

#include <algorithm>

#include "access/AALinkElement.h"
#include "base/error.h"
#include "base/language.h"
#include "platform/errors_shown.h"
#include "web/library/LinkFile.h"

namespace corvane {

LinksList::LinksList(PaneContext& pane, AAFormCollection& announcers)
    : pane_(pane), oAAFormCol_(announcers) {
  ComboBox& list = *pane_.controls.cmbListLinks;
  connections_ += list.Click.Connect([this] { pane_.announcer.Say(Words()); });
  // When the focus was moved for the user, the page's title is not cut off.
  connections_ += list.GotFocus.Connect([this] {
    const std::string words = Words() + " Links List";
    pane_.state.quiet ? pane_.announcer.SayAfterTitle(words) : pane_.announcer.Say(words);
  });
  connections_ += list.KeyDown.Connect([this](KeyEvent& key) { cmbListLinks_KeyDown(key); });
  connections_ += list.DblClick.Connect([this] { cmbListLinks_DblClick(); });
}

// The first entry is the program's own, as far as it goes.
std::string LinksList::Words() const {
  const ComboBox& list = *pane_.controls.cmbListLinks;
  const std::string words = list.Text();
  const auto index = static_cast<std::size_t>(std::max(list.ListIndex(), 0));
  if (index > 0) {
    const bool has_own = index <= links_.size() && !links_[index - 1]->language.empty();
    return language::Marked(words, has_own ? links_[index - 1]->language : language_);
  }
  const std::string name = words.ends_with(name_) ? name_ : "";
  return words.substr(0, words.size() - name.size()) + language::Marked(name, language_);
}

void LinksList::Fill(const HTMLDocument& document, const std::function<bool()>& still_wanted) {
  ComboBox& list = *pane_.controls.cmbListLinks;
  list.Clear();

  std::string name = document.nameProp;
  if (name.empty()) name = document.Title;
  if (name.empty()) name = document.location;
  name_ = name;
  language_ = document.language;

  const auto links = document.links;
  page_ = document.location;
  links_.clear();
  links_.reserve(links.size());
  list.AddItem(std::to_string(links.size()) + " Links in " + name);
  oAAFormCol_.ClearLinkCollection();
  filling_ = true;
  for (const auto& link : links) {
    pane_.desktop.DoEvents();
    if (!still_wanted()) return;
    links_.push_back(link);
    list.AddItem(LineFor(*link));
    oAAFormCol_.AddLink(link);
  }
  filling_ = false;
  list.SetListIndex(0);
}

const std::string& LinksList::LineFor(const HTMLElement& link) const {
  if (pane_.manner.today) return WordsOfLink(link);
  return link.innerText.empty() ? link.href : link.innerText;
}

void LinksList::cmbListLinks_KeyDown(const KeyEvent& key) {
  if (key.KeyCode == kKeyReturn && (key.Shift & kShiftMask) == 0) cmbListLinks_DblClick();
}

void LinksList::cmbListLinks_DblClick() {
  ErrorsShown(pane_.desktop.GetMessageBox(), "cmbListLinksDblClick Error: ", [&] {
    const int index = pane_.controls.cmbListLinks->ListIndex();
    if (index < 0 && filling_) return pane_.announcer.Say("Extracting Links ...");
    if (index < 0 || static_cast<std::size_t>(index) > links_.size()) {
      throw RunTimeError(kErrSubscriptOutOfRange, "cmbListLinks_DblClick",
                         "Subscript out of range");
    }
    const std::string address =
        index == 0 ? page_ : links_[static_cast<std::size_t>(index) - 1]->href;
    if (address.empty()) return;
    if (index > 0 && IsHostileAddress(address, page_.empty() ? "unknown:" : page_)) {
      pane_.announcer.AddAndSay(RefusedWords(address));
      return;
    }
    WebBrowser& browser = *pane_.controls.brwWebBrowser;
    if (index > 0 && browser.GoToPlace(address)) return;
    pane_.StartReading();
    browser.Navigate2(address);
  });
}

}  // namespace corvane
