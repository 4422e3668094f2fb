#include "platform/linux/web/page/find_in_page.h"

#include <utility>

#include "base/safe_name.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/page/page_script.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestShown = 100;
constexpr guint32 kOptions = WEBKIT_FIND_OPTIONS_CASE_INSENSITIVE | WEBKIT_FIND_OPTIONS_WRAP_AROUND;

}  // namespace

FindInPage::FindInPage(WebKitWebView* view, QuestionDesk& desk,
                       std::function<void(const std::string&)> say, std::function<void()> found)
    : view_(view),
      finder_(webkit_web_view_get_find_controller(view)),
      desk_(desk),
      say_(std::move(say)),
      found_(std::move(found)),
      self_(std::make_shared<FindInPage*>(this)) {
  g_signal_connect(finder_, "found-text",
                   G_CALLBACK(+[](WebKitFindController*, guint count, gpointer self) {
                     static_cast<FindInPage*>(self)->Found(count);
                   }),
                   this);
  g_signal_connect(finder_, "failed-to-find-text",
                   G_CALLBACK(+[](WebKitFindController*, gpointer data) {
                     auto& self = *static_cast<FindInPage*>(data);
                     if (std::exchange(self.going_, Going::Nowhere) == Going::Nowhere) return;
                     self.place_ = 0;
                     self.say_("Not found: " + Shorten(self.words_, kLongestShown));
                   }),
                   this);
}

FindInPage::~FindInPage() { g_signal_handlers_disconnect_by_data(finder_, this); }

void FindInPage::Ask() {
  desk_.Ask(QuestionDesk::Asker::User,
            {"Find in page", "", {{.label = "Find", .value = words_}}, {"&Find", "&Cancel"}},
            [this](const auto& reply) {
              if (!reply || reply->button != 0 || reply->values.at(0).empty()) return;
              words_ = reply->values.at(0);
              Start();
            });
}

// From the page's beginning: the engine starts at what is selected.
void FindInPage::Start() {
  Evaluate(view_, "getSelection().removeAllRanges()", nullptr,
           [weak = std::weak_ptr(self_)](const auto&) {
             const auto alive = weak.lock();
             if (!alive) return;
             FindInPage& self = **alive;
             self.place_ = 0;
             self.going_ = Going::Start;
             webkit_find_controller_search(self.finder_, self.words_.c_str(), kOptions, G_MAXUINT);
           });
}

void FindInPage::Step(bool forward) {
  if (words_.empty()) return Ask();
  if (place_ == 0) return Start();
  going_ = forward ? Going::Forward : Going::Back;
  forward ? webkit_find_controller_search_next(finder_)
          : webkit_find_controller_search_previous(finder_);
}

// The engine counts the places only when it starts to look.
void FindInPage::Found(unsigned counted) {
  const Going going = std::exchange(going_, Going::Nowhere);
  if (going == Going::Start) count_ = counted;
  const unsigned count = count_;
  if (going == Going::Nowhere || count == 0) return;
  std::string where;
  if (going == Going::Start) {
    place_ = 1;
  } else if (going == Going::Forward) {
    if (place_ >= count) where = "From the beginning. ";
    place_ = place_ >= count ? 1 : place_ + 1;
  } else {
    if (place_ <= 1 || place_ > count) where = "From the end. ";
    place_ = place_ <= 1 || place_ > count ? count : place_ - 1;
  }
  Tell(where + std::to_string(place_) + " of " + std::to_string(count));
}

// With the words around the place, which only the page knows.
void FindInPage::Tell(const std::string& where) {
  Evaluate(view_, "corvane.around()", nullptr,
           [weak = std::weak_ptr(self_), where](const std::optional<std::string>& around) {
             const auto alive = weak.lock();
             if (!alive) return;
             (*alive)->say_(around && !around->empty() ? where + ": " + *around : where);
             if (const auto still = weak.lock()) (*still)->found_();
           });
}

}  // namespace corvane::desktop
