#include "platform/linux/web/engine_view.h"

#include <memory>
#include <utility>

namespace corvane::desktop {

EngineView::EngineView(WebEngine& engine, EngineView* opener)
    : shared_(engine),
      engine_(engine, opener == nullptr ? nullptr : opener->View()),
      page_(engine_, engine.ForBrowsers(), Look(), opener != nullptr),
      requests_(View(), page_.Requests(),
                [this](const FileRequest& request) { page_.AskForFiles(request); }),
      keys_(View(), KeysHost(), engine.Options().hang.keys),
      list_(View(), [this](const OpenList& list) { page_.Reader().TellList(list); }) {
  engine_.ServeDocuments(std::make_unique<Documents>(
      View(), page_.Requests().Desk(), engine.Options().document_program, DocumentsHost()));
  engine_.make_window = [this](const std::string& address) { return MakeWindow(address); };
  g_signal_connect(View(), "show-option-menu",
                   G_CALLBACK(+[](WebKitWebView*, WebKitOptionMenu* menu, GdkEvent*,
                                  GdkRectangle* area, gpointer self) -> gboolean {
                     static_cast<EngineView*>(self)->list_.Open(menu, *area);
                     return TRUE;
                   }),
                   this);
  ConnectShared();
}

// Documents ask at the desk of the page.
EngineView::~EngineView() {
  connections_.Clear();
  g_signal_handlers_disconnect_by_data(View(), this);
  engine_.ServeDocuments(nullptr);
}

ElementEvents::Look EngineView::Look() const {
  const LookAtFocus& look = shared_.Options().look_at_focus;
  if (!look) return nullptr;
  return [view = GTK_WIDGET(View()), look](std::function<void(const FieldFocus&)> seen) {
    look(view, std::move(seen));
  };
}

Documents::Host EngineView::DocumentsHost() {
  return {[this](const Problem& problem) { page_.Loader().ShowDocumentProblem(problem); },
          [this](const std::string& address) { page_.Loader().GoInstead(address); }};
}

PageKeys::Host EngineView::KeysHost() {
  return {[this](const GdkEventKey& event) {
            const bool types =
                event.is_modifier == 0 && (event.state & (GDK_CONTROL_MASK | GDK_MOD1_MASK)) == 0;
            engine_.Used.Raise(types ? Engine::Input::Key : Engine::Input::CommandKey);
          },
          [this] { return page_.Loader().Hangs(); },
          [this] { return page_.IsHeld(); },
          [this](std::function<void()> answered) {
            engine_.Evaluate("1", [answered = std::move(answered)](const auto&) { answered(); });
          },
          [this] { return page_.Reader().OnList(); },
          [this](bool left) { page_.Reader().Events().Ignore(left); }};
}

void EngineView::ConnectShared() {
  connections_ += shared_.FileBegins.Connect([this](WebKitDownload* download, bool& taken) {
    taken = taken || engine_.GetDocuments()->TakesDownload(download);
  });
  connections_ +=
      shared_.DocumentWanted.Connect([this](WebKitURISchemeRequest* request, bool& taken) {
        if (webkit_uri_scheme_request_get_web_view(request) != View()) return;
        taken = true;
        engine_.GetDocuments()->Answer(request);
      });
  connections_ +=
      shared_.Say.Connect([this](WebKitWebView* view, const std::string& sentence, bool& said) {
        if (view == View() || (view == nullptr && !std::exchange(said, true))) {
          page_.Say(sentence);
        }
      });
}

// The engine still waits for the answer. Nobody who wants the view: it goes.
WebKitWebView* EngineView::MakeWindow(const std::string& address) {
  auto opened = std::make_unique<EngineView>(shared_, this);
  opened->page_.Loader().Expect(address);
  WebKitWebView* view = opened->View();
  shared_.Offer(std::move(opened));
  opening_.Start(0, [this] {
    WebEngine& shared = shared_;
    page_.TellNewWindow();
    shared.TakeOffered().reset();
  });
  return view;
}

}  // namespace corvane::desktop
