// A view of WebKit's keeps what the port promises.
#include "tests/contract/engine_contract.h"

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/web/webkit_engine.h"
#include "tests/platform/web/page_harness.h"
#include "tests/platform/web/test_server.h"

namespace corvane::contract {
namespace {

class WebKitMaker {
 public:
  WebKitMaker() { server_.Page("/", "<title>A</title><p>Some words."); }
  Engine& Get() { return *engine_; }
  void End() { engine_.reset(); }
  std::string Page() const { return server_.Url(); }
  std::string Nobody() const { return nobody_; }
  static bool Wait(const std::function<bool()>& holds) {
    // What holds after so many turns must be asked again and again.
    const guint turns = g_timeout_add(
        5, +[](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
    const bool held = desktop::WaitUntil(holds);
    g_source_remove(turns);
    return held;
  }

 private:
  std::string nobody_ = desktop::TestServer().Url();  // which has gone
  desktop::TestServer server_;
  std::unique_ptr<desktop::WebKitEngine> engine_ =
      std::make_unique<desktop::WebKitEngine>(desktop::SharedEngine(), nullptr);
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(WebKit, EngineContract, WebKitMaker);

}  // namespace corvane::contract
