#include "platform/linux/access/access_bus.h"

#include <vector>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {
namespace {

constexpr int kCallTimeout = 5000;  // milliseconds
constexpr guint kConnectSeconds = 5;
constexpr const char* kNoBus = "Accessibility is not available: its service cannot be reached.";
constexpr auto kClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

void OnReply(GObject* connection, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<AccessBus::Reply> reply(static_cast<AccessBus::Reply*>(data));
  GError* error = nullptr;
  VariantPtr value(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error));
  const bool given_up = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED);
  const ErrorPtr owned(error);
  if (!given_up) (*reply)(std::move(value));
}

}  // namespace

AccessBus::AccessBus(std::function<void()> lost)
    : lost_(std::move(lost)), thread_([this] { Run(); }) {}

AccessBus::~AccessBus() {
  g_cancellable_cancel(cancel_.get());
  Post([this] { g_main_loop_quit(loop_); });
  thread_.join();
  g_main_loop_unref(loop_);
  g_main_context_unref(context_);
}

void AccessBus::Run() {
  g_main_context_push_thread_default(context_);
  g_main_loop_run(loop_);
  if (connection_) g_signal_handlers_disconnect_by_data(connection_.get(), this);
  // What was given up tells so; what was posted is forgotten with the context.
  while (g_main_context_iteration(context_, FALSE)) {
  }
  connection_.reset();
  session_.reset();
  g_main_context_pop_thread_default(context_);
}

void AccessBus::Post(std::function<void()> run) { PostTo(context_, std::move(run)); }

void AccessBus::Connect(Connected connected) {
  if (connection_) return connected("");
  waiting_.push_back(std::move(connected));
  if (waiting_.size() > 1) return;
  FindAddress([this](const std::string& address) {
    if (address.empty()) return Finish(kNoBus);
    Open(address);
  });
}

// The bus's address stands in the environment, or the session bus knows it.
void AccessBus::FindAddress(std::function<void(const std::string&)> found) {
  const char* given = g_getenv("AT_SPI_BUS_ADDRESS");
  if (given != nullptr && *given != '\0') return found(given);
  if (!session_ || g_dbus_connection_is_closed(session_.get())) {
    const GText address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, cancel_.get(), nullptr));
    session_.reset(!address ? nullptr
                            : g_dbus_connection_new_for_address_sync(
                                  address.get(), kClient, nullptr, cancel_.get(), nullptr));
  }
  if (!session_) return found("");
  g_dbus_connection_call(session_.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                         "GetAddress", nullptr, G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE,
                         kCallTimeout, cancel_.get(), &OnReply,
                         new Reply([found = std::move(found)](VariantPtr reply) {
                           const char* address = "";
                           if (reply) g_variant_get(reply.get(), "(&s)", &address);
                           found(address);
                         }));
}

// A socket that takes the connection and then keeps silent must not keep the
// callers waiting for ever.
void AccessBus::Open(const std::string& address) {
  struct Opening {
    AccessBus* bus;
    ObjectPtr<GCancellable> cancel;
    Owned<GSource, g_source_unref> guard;
  };
  auto* opening =
      new Opening{this, ObjectPtr<GCancellable>(g_cancellable_new()),
                  Owned<GSource, g_source_unref>(g_timeout_source_new_seconds(kConnectSeconds))};
  g_source_set_callback(
      opening->guard.get(),
      +[](gpointer cancel) -> gboolean {
        g_cancellable_cancel(G_CANCELLABLE(cancel));
        return G_SOURCE_REMOVE;
      },
      opening->cancel.get(), nullptr);
  g_source_attach(opening->guard.get(), context_);
  g_dbus_connection_new_for_address(
      address.c_str(), kClient, nullptr, opening->cancel.get(),
      +[](GObject*, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Opening> mine(static_cast<Opening*>(data));
        AccessBus& bus = *mine->bus;
        bus.connection_.reset(g_dbus_connection_new_for_address_finish(result, nullptr));
        g_source_destroy(mine->guard.get());
        if (bus.connection_) {
          g_signal_connect(bus.connection_.get(), "closed", G_CALLBACK(&AccessBus::OnClosed), &bus);
        }
        bus.Finish(bus.connection_ ? "" : kNoBus);
      },
      opening);
}

void AccessBus::Finish(const std::string& problem) {
  for (const auto& connected : std::exchange(waiting_, {})) connected(problem);
}

void AccessBus::OnClosed(GDBusConnection* /*connection*/, gboolean /*by_peer*/, GError* /*error*/,
                         gpointer self) {
  auto& bus = *static_cast<AccessBus*>(self);
  bus.connection_.reset();
  bus.lost_();
}

void AccessBus::Call(const ElementRef& element, const char* interface, const char* method,
                     GVariant* args, Reply reply, int timeout) {
  if (!connection_ || !g_dbus_is_name(element.bus.c_str()) ||
      !g_variant_is_object_path(element.path.c_str())) {
    const VariantPtr unused(args == nullptr ? nullptr : g_variant_ref_sink(args));
    return reply(nullptr);
  }
  g_dbus_connection_call(connection_.get(), element.bus.c_str(), element.path.c_str(), interface,
                         method, args, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, timeout,
                         cancel_.get(), &OnReply, new Reply(std::move(reply)));
}

}  // namespace corvane::desktop
