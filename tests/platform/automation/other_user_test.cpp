#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/automation/bus_automation.h"
#include "platform/linux/automation/bus_names.h"
#include "tests/platform/automation/private_bus.h"
#include "tests/platform/automation/recording_server.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop::tests {
namespace {

constexpr const char* kNobody = "65534";

/// A bus that lets every user in, as a misconfigured one would.
class OpenBus {
 public:
  OpenBus() {
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    const std::string config = folder_ / "bus.conf";
    std::ofstream(config) << "<busconfig><type>custom</type><listen>unix:path=" << Socket()
                          << "</listen><policy context=\"default\"><allow user=\"*\"/>"
                             "<allow own=\"*\"/><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                             "<allow eavesdrop=\"true\"/></policy></busconfig>";
    const std::string file = "--config-file=" + config;
    process_.reset(g_subprocess_new(G_SUBPROCESS_FLAGS_STDOUT_PIPE, nullptr, "dbus-daemon",
                                    file.c_str(), "--nofork", "--print-address", nullptr));
    EXPECT_TRUE(process_);
    gchar first = 0;  // something is printed as soon as the bus listens
    g_input_stream_read(g_subprocess_get_stdout_pipe(process_.get()), &first, 1, nullptr, nullptr);
    std::filesystem::permissions(Socket(), std::filesystem::perms(0777));
  }
  ~OpenBus() {
    g_subprocess_force_exit(process_.get());
    g_subprocess_wait(process_.get(), nullptr, nullptr);
  }
  std::string Address() const { return "unix:path=" + Socket(); }

 private:
  std::string Socket() const { return folder_ / "socket"; }

  const test::TemporaryFolder folder_;
  ObjectPtr<GSubprocess> process_;
};

// What gdbus prints for a call by the user of that number.
std::string SayAs(const std::string& user, const std::string& address) {
  struct Wait {
    std::string output;
    bool done = false;
  } wait;
  const std::string reuid = "--reuid=" + user;
  const ObjectPtr<GSubprocess> gdbus(g_subprocess_new(
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_PIPE |
                                    G_SUBPROCESS_FLAGS_STDERR_MERGE),
      nullptr, "setpriv", reuid.c_str(), "--clear-groups", "gdbus", "call", "--address",
      address.c_str(), "--dest", kBusName, "--object-path", kServicePath, "--method",
      "org.corvane.MainApp.Say", "hello", "true", nullptr));
  g_subprocess_communicate_utf8_async(
      gdbus.get(), nullptr, nullptr,
      [](GObject* source, GAsyncResult* result, gpointer data) {
        gchar* output = nullptr;
        g_subprocess_communicate_utf8_finish(G_SUBPROCESS(source), result, &output, nullptr,
                                             nullptr);
        const GText owner(output);
        auto& ended = *static_cast<Wait*>(data);
        ended.output = output != nullptr ? output : "";
        ended.done = true;
      },
      &wait);
  RunUntil([&] { return wait.done; });
  return wait.output;
}

TEST(OtherUser, IsNotAnsweredEvenWhereTheBusLetsThemIn) {
  if (getuid() != 0) GTEST_SKIP() << "only root can act as another user";
  const OpenBus bus;
  const auto own = Connect(bus.Address());
  RecordingServer server;
  BusAutomation automation(own.get());
  automation.Publish(server);
  AskUntil([&] { return SayAs("0", bus.Address()) == "()\n"; });
  ASSERT_FALSE(server.calls.empty());
  server.calls.clear();
  EXPECT_THAT(SayAs(kNobody, bus.Address()), ::testing::HasSubstr("AccessDenied"));
  EXPECT_THAT(server.calls, ::testing::IsEmpty());
}

}  // namespace
}  // namespace corvane::desktop::tests
