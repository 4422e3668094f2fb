#include "tests/platform/web/test_server.h"

#include <stdexcept>
#include <utility>

namespace corvane::desktop {
namespace {

void Answer(SoupServerMessage* message, const std::string& content, const std::string& type) {
  soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
  soup_server_message_set_response(message, type.c_str(), SOUP_MEMORY_COPY, content.data(),
                                   content.size());
}

}  // namespace

TestServer::TestServer(Kind kind)
    : server_(soup_server_new("server-header", "test", nullptr)), kind_(kind) {
  if (kind == Kind::SelfSigned) {
    GTlsCertificate* certificate =
        g_tls_certificate_new_from_file(CORVANE_TEST_CERTIFICATE, nullptr);
    if (certificate == nullptr) throw std::runtime_error("no test certificate");
    soup_server_set_tls_certificate(server_, certificate);
    g_object_unref(certificate);
  }
  soup_server_add_handler(server_, nullptr, &TestServer::OnRequest, this, nullptr);
  GSocketAddress* address = g_inet_socket_address_new_from_string("127.0.0.1", 0);
  const bool listening = soup_server_listen(
      server_, address,
      kind == Kind::SelfSigned ? SOUP_SERVER_LISTEN_HTTPS : static_cast<SoupServerListenOptions>(0),
      nullptr);
  g_object_unref(address);
  if (!listening) throw std::runtime_error("the test server cannot listen");
}

TestServer::~TestServer() {
  soup_server_disconnect(server_);
  g_object_unref(server_);
}

void TestServer::Page(const std::string& path, const std::string& content, const std::string& type,
                      const std::map<std::string, std::string>& headers) {
  handlers_[path] = [content, type, headers](SoupServerMessage* message) {
    for (const auto& [name, value] : headers) {
      soup_message_headers_replace(soup_server_message_get_response_headers(message), name.c_str(),
                                   value.c_str());
    }
    Answer(message, content, type);
  };
}

void TestServer::Redirect(const std::string& path, const std::string& target) {
  handlers_[path] = [target](SoupServerMessage* message) {
    soup_server_message_set_redirect(message, SOUP_STATUS_FOUND, target.c_str());
  };
}

void TestServer::Stall(const std::string& path) {
  handlers_[path] = [](SoupServerMessage* message) { soup_server_message_pause(message); };
}

void TestServer::StallAfter(const std::string& path, const std::string& first_part,
                            const std::string& type) {
  handlers_[path] = [first_part, type](SoupServerMessage* message) {
    SoupMessageHeaders* headers = soup_server_message_get_response_headers(message);
    soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
    soup_message_headers_set_encoding(headers, SOUP_ENCODING_CHUNKED);
    soup_message_headers_replace(headers, "Content-Type", type.c_str());
    soup_message_body_append(soup_server_message_get_response_body(message), SOUP_MEMORY_COPY,
                             first_part.data(), first_part.size());
    // Not completed: the rest of the body never comes.
  };
}

void TestServer::Handle(const std::string& path, Handler handler) {
  handlers_[path] = std::move(handler);
}

std::string TestServer::Url(const std::string& path) const {
  return (kind_ == Kind::Plain ? "http://127.0.0.1:" : "https://127.0.0.1:") +
         std::to_string(Port()) + path;
}

int TestServer::Port() const {
  GSList* uris = soup_server_get_uris(server_);
  const int port = g_uri_get_port(static_cast<GUri*>(uris->data));
  g_slist_free_full(uris, reinterpret_cast<GDestroyNotify>(g_uri_unref));
  return port;
}

int TestServer::Requests(const std::string& path) const {
  const auto found = requests_.find(path);
  return found == requests_.end() ? 0 : found->second;
}

void TestServer::OnRequest(SoupServer*, SoupServerMessage* message, const char* path, GHashTable*,
                           gpointer data) {
  auto& self = *static_cast<TestServer*>(data);
  ++self.requests_[path];
  const char* query = g_uri_get_query(soup_server_message_get_uri(message));
  if (query != nullptr) self.last_query_ = query;
  const auto handler = self.handlers_.find(path);
  if (handler != self.handlers_.end()) return handler->second(message);
  soup_server_message_set_status(message, SOUP_STATUS_NOT_FOUND, nullptr);
  const std::string page = "<title>404</title><p>The server has no such page.";
  soup_server_message_set_response(message, "text/html", SOUP_MEMORY_COPY, page.data(),
                                   page.size());
}

}  // namespace corvane::desktop
