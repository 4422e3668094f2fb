#pragma once

#include <libsoup/soup.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A web server of the test program's own, on 127.0.0.1.
class TestServer {
 public:
  using Handler = std::function<void(SoupServerMessage*)>;

  enum class Kind { Plain, SelfSigned };
  explicit TestServer(Kind kind = Kind::Plain);
  ~TestServer();
  TestServer(const TestServer&) = delete;
  TestServer& operator=(const TestServer&) = delete;

  void Page(const std::string& path, const std::string& content,
            const std::string& type = "text/html; charset=utf-8",
            const std::map<std::string, std::string>& headers = {});
  void Redirect(const std::string& path, const std::string& target);
  /// Accepts the request and never answers it.
  void Stall(const std::string& path);
  /// Answers with these first bytes and never with the rest.
  void StallAfter(const std::string& path, const std::string& first_part,
                  const std::string& type = "text/html; charset=utf-8");
  void Handle(const std::string& path, Handler handler);

  std::string Url(const std::string& path = "/") const;
  int Port() const;
  int Requests(const std::string& path) const;
  std::string LastQuery() const { return last_query_; }

 private:
  static void OnRequest(SoupServer*, SoupServerMessage* message, const char* path, GHashTable*,
                        gpointer self);

  SoupServer* server_;
  Kind kind_;
  std::map<std::string, Handler> handlers_;
  std::map<std::string, int> requests_;
  std::string last_query_;
};

}  // namespace corvane::desktop
