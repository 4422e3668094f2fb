#include "web/requests/PageRequests.h"

#include <utility>

#include "web/address/Address.h"

namespace corvane {

PageRequests::PageRequests(const Desks& desks, void* page, Host host)
    : page_(page),
      host_(std::move(host)),
      notices_([this](const std::string& sentence) {
        host_.status(sentence);
        host_.say(sentence);
      }),
      desk_(desks.questions,
            [this] {
              notices_.Tell("This page asks too many questions. They are refused for a while.");
            }),
      dialogs_(
          desks.alerts, desk_,
          {[this](bool open) { host_.hold(open); },
           [this](const std::string& text) { host_.status(text); },
           [this](const std::string& text) { notices_.Tell(text); }, [this] { host_.stay(); }}),
      permissions_(desks.book, desk_, notices_),
      sign_in_(desk_),
      outside_(desk_, desks.programs, [this, here = life_.Look()](const std::string& text) {
        if (here) host_.say(text);
      }) {
  desk_.AskFor(page_);
}

// Who asked is still there to take the answer.
PageRequests::~PageRequests() { desk_.Reset(); }

void PageRequests::Show(std::unique_ptr<ScriptDialog> dialog) {
  dialogs_.Show(page_, std::move(dialog), SiteOf(host_.address()));
}

void PageRequests::Decide(const PermissionWish& wish, Permissions::Answer answer) {
  permissions_.Decide(wish, host_.address(), std::move(answer));
}

void PageRequests::AskToSignIn(const SignInWish& wish, SignIn::Answer answer) {
  sign_in_.Ask(wish, std::move(answer));
}

void PageRequests::RefuseCertificate() {
  notices_.Tell("The site asks for a certificate of yours. None is given.");
}

void PageRequests::AskToPrint() {
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Print",
             "The page " + SiteOf(host_.address()) + " wants to be printed.",
             {},
             {"&Print", "&Cancel"}},
            [this](const auto& reply) {
              if (reply && reply->button == 0) host_.print();
            });
}

void PageRequests::ShownInFull(bool full) {
  notices_.Tell(full ? "Full screen. Press Escape to leave it." : "Full screen is over.");
}

void PageRequests::PageChanged() {
  desk_.Reset();
  dialogs_.Reset();
  permissions_.Reset();
}

void PageRequests::UserAskedForPage() {
  permissions_.Forget();
  sign_in_.Reset();
  UserActed();
}

bool PageRequests::MayOpenWindow(bool user_gesture) {
  if (user_gesture && std::exchange(may_open_window_, false)) return true;
  notices_.Tell("A pop-up window was blocked.");
  return false;
}

void PageRequests::OpenOutside(const std::string& address, bool user_gesture) {
  if (user_gesture) return outside_.Offer(address);
  notices_.Tell("The page wanted to open another program. This was refused.");
}

}  // namespace corvane
