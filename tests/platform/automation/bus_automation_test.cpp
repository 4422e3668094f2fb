#include "platform/linux/automation/bus_automation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/automation/bus_names.h"
#include "tests/platform/automation/private_bus.h"
#include "tests/platform/automation/recording_server.h"

namespace corvane::desktop::tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Reply {
  std::string object;  // what CreateObject returned
  std::string error;   // the error's name, a blank and its message
};

/// Another program on the same bus.
class Client {
 public:
  explicit Client(const std::string& address) : connection_(Connect(address)) {}

  Reply Call(const std::string& path, const char* interface, const char* method,
             GVariant* arguments = nullptr) {
    struct Wait {
      Reply reply;
      bool done = false;
    } wait;
    g_dbus_connection_call(
        connection_.get(), kBusName, path.c_str(), interface, method, arguments, nullptr,
        G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr,
        [](GObject* source, GAsyncResult* result, gpointer data) {
          auto& answered = *static_cast<Wait*>(data);
          GError* raw = nullptr;
          const VariantPtr value(
              g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, &raw));
          const ErrorPtr error(raw);
          if (raw != nullptr) {
            const GText name(g_dbus_error_get_remote_error(raw));
            g_dbus_error_strip_remote_error(raw);
            answered.reply.error = std::string(name ? name.get() : "?") + " " + raw->message;
          } else if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE("(o)"))) {
            const gchar* object = nullptr;
            g_variant_get(value.get(), "(&o)", &object);
            answered.reply.object = object;
          }
          answered.done = true;
        },
        &wait);
    RunUntil([&] { return wait.done; });
    return wait.reply;
  }
  Reply Create(const char* class_name = "Corvane.Application") {
    return Call(kFactoryPath, kFactoryInterface, "CreateObject", g_variant_new("(s)", class_name));
  }
  void Leave() { g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr); }
  GDBusConnection* Bus() { return connection_.get(); }

 private:
  ObjectPtr<GDBusConnection> connection_;
};

struct BusAutomationTest : ::testing::Test {
  Reply Start(Client& caller, const std::string& object, const char* service = kServicePath) {
    return caller.Call(object, kObjectInterface, "StartBrowser", g_variant_new("(o)", service));
  }
  /// Waits until the name is there: it is asked for without waiting.
  void Publish() {
    automation.Publish(server);
    AskUntil([&] {
      return client.Call(kFactoryPath, "org.freedesktop.DBus.Peer", "Ping").error.empty();
    });
  }

  PrivateBus bus;
  ObjectPtr<GDBusConnection> own = Connect(bus.Address());
  RecordingServer server;
  BusAutomation automation{own.get()};
  Client client{bus.Address()};
};

TEST_F(BusAutomationTest, ClientOpensAWindowMakesItSpeakAndClosesIt) {
  Publish();
  const std::string object = client.Create().object;
  ASSERT_NE(object, "");
  EXPECT_EQ(Start(client, object).error, "");
  client.Call(object, kObjectInterface, "Say", g_variant_new("(sb)", "h\303\251llo", TRUE));
  client.Call(object, kObjectInterface, "Say", g_variant_new("(sb)", "there", FALSE));
  client.Call(object, kObjectInterface, "KillBrowser");
  EXPECT_THAT(server.calls, ElementsAre("start", "says h\303\251llo!", "says there", "kill"));
}

TEST_F(BusAutomationTest, ReleasedObjectIsGone) {
  Publish();
  const std::string object = client.Create().object;
  EXPECT_EQ(client.Call(object, kObjectInterface, "Release").error, "");
  EXPECT_EQ(server.objects, 0);
  EXPECT_NE(client.Call(object, kObjectInterface, "KillBrowser").error, "");
  EXPECT_THAT(server.calls, IsEmpty());
}

TEST_F(BusAutomationTest, ObjectsOfAClientThatDiesAreReleasedAndNoOthers) {
  Publish();
  Client dying(bus.Address());
  const std::string stays = client.Create().object;
  dying.Create();
  dying.Create();
  EXPECT_EQ(server.objects, 3);
  dying.Leave();
  RunUntil([&] { return server.objects == 1; });
  EXPECT_EQ(client.Call(stays, kObjectInterface, "KillBrowser").error, "");
}

TEST_F(BusAutomationTest, ObjectsOfSeveralClientsAreDifferentOnes) {
  Publish();
  Client other(bus.Address());
  EXPECT_NE(client.Create().object, other.Create().object);
  EXPECT_EQ(server.objects, 2);
}

TEST_F(BusAutomationTest, FailureReachesTheCallerWithNumberAndDescription) {
  Publish();
  EXPECT_EQ(client.Create("Corvane.Window").error, "org.corvane.Error.RunTime 429: not known");
  server.echo_fails = true;
  EXPECT_EQ(client.Call(kServicePath, kServiceInterface, "KeyBoardEcho", g_variant_new("(b)", TRUE))
                .error,
            "org.corvane.Error.RunTime 91: no speech");
}

TEST_F(BusAutomationTest, OnlyTheSpeechServiceCanBeShared) {
  Publish();
  const std::string object = client.Create().object;
  EXPECT_EQ(Start(client, object, "/org/corvane/Corvane").error,
            "org.corvane.Error.RunTime 13: Type mismatch");
  EXPECT_THAT(server.calls, IsEmpty());
}

TEST_F(BusAutomationTest, ArgumentsOfAWrongKindAreRefused) {
  Publish();
  EXPECT_THAT(
      client.Call(kServicePath, kServiceInterface, "Say", g_variant_new("(s)", "no flag")).error,
      HasSubstr("InvalidArgs"));
  EXPECT_THAT(server.calls, IsEmpty());
}

TEST_F(BusAutomationTest, ServiceIsReached) {
  Publish();
  client.Call(kServicePath, kServiceInterface, "SpeechInit");
  client.Call(kServicePath, kServiceInterface, "Say", g_variant_new("(sb)", "hello", TRUE));
  client.Call(kServicePath, kServiceInterface, "KeyBoardEcho", g_variant_new("(b)", FALSE));
  client.Call(kServicePath, kServiceInterface, "SpeechTerminate");
  EXPECT_THAT(server.calls, ElementsAre("init", "service says hello!", "echo off", "terminate"));
}

TEST_F(BusAutomationTest, ClaimsOnSpeechBelongToTheirCallerWhoseLeavingIsTold) {
  Publish();
  Client other(bus.Address());
  client.Call(kServicePath, kServiceInterface, "SpeechInit");
  other.Call(kServicePath, kServiceInterface, "SpeechInit");
  other.Call(kServicePath, kServiceInterface, "SpeechTerminate");
  const std::string name = g_dbus_connection_get_unique_name(other.Bus());
  const std::string stays = g_dbus_connection_get_unique_name(client.Bus());
  EXPECT_THAT(server.callers, ElementsAre(stays, name, name));
  other.Leave();
  RunUntil([&] { return !server.gone.empty(); });
  EXPECT_THAT(server.gone, ElementsAre(name));
}

TEST_F(BusAutomationTest, EchoIsTold) {
  Publish();
  std::vector<bool> told;
  const auto on_signal = [](GDBusConnection*, const gchar*, const gchar*, const gchar*,
                            const gchar*, GVariant* arguments, gpointer data) {
    gboolean on = FALSE;
    g_variant_get(arguments, "(b)", &on);
    static_cast<std::vector<bool>*>(data)->push_back(on != FALSE);
  };
  const guint subscription = g_dbus_connection_signal_subscribe(
      client.Bus(), kBusName, kServiceInterface, "KeyboardEchoStatus", kServicePath, nullptr,
      G_DBUS_SIGNAL_FLAGS_NONE, on_signal, &told, nullptr);
  client.Create();  // a round trip: the subscription is known
  automation.TellKeyboardEcho(true);
  RunUntil([&] { return told.size() == 1; });
  EXPECT_TRUE(told[0]);
  g_dbus_connection_signal_unsubscribe(client.Bus(), subscription);
}

TEST_F(BusAutomationTest, DesktopHandsOverAddresses) {
  Publish();
  const char* addresses[] = {"https://example.org/", "file:///tmp/a.html", nullptr};
  client.Call(kFactoryPath, kOpenInterface, "Open",
              g_variant_new("(^asa{sv})", addresses, nullptr));
  client.Call(kFactoryPath, kOpenInterface, "Activate", g_variant_new("(a{sv})", nullptr));
  EXPECT_THAT(server.calls,
              ElementsAre("open https://example.org/", "open file:///tmp/a.html", "open "));
}

TEST_F(BusAutomationTest, RefusedStartAnswersEveryCallerWithItsError) {
  automation.Refuse(RunTimeError(-2147219967, "test", "Application can't be started"));
  AskUntil([&] { return client.Create().error.find("ServiceUnknown") == std::string::npos; });
  EXPECT_EQ(client.Create().error,
            "org.corvane.Error.RunTime -2147219967: Application can't be started");
}

TEST_F(BusAutomationTest, AProcessThatAPersonStartedTakesTheNameFromARefusedOne) {
  automation.Refuse(RunTimeError(-2147219967, "test", "Application can't be started"));
  const auto second = Connect(bus.Address());
  BusAutomation started(second.get());
  started.Publish(server);
  AskUntil([&] { return !client.Create().object.empty(); });
}

TEST_F(BusAutomationTest, SecondProcessTakesOverWhenTheFirstEnds) {
  Publish();
  const auto second = Connect(bus.Address());
  RecordingServer later_server;
  BusAutomation later(second.get());
  later.Publish(later_server);
  client.Create();
  EXPECT_EQ(server.objects, 1);
  EXPECT_EQ(later_server.objects, 0);
  automation.Withdraw();
  AskUntil([&] { return !client.Create().object.empty(); });
  EXPECT_EQ(later_server.objects, 1);
}

TEST_F(BusAutomationTest, WithdrawnProgramHasReleasedAllAndIsNotFound) {
  Publish();
  client.Create();
  automation.Withdraw();
  EXPECT_EQ(server.objects, 0);
  EXPECT_THAT(client.Create().error, HasSubstr("org.freedesktop.DBus.Error."));
}

TEST_F(BusAutomationTest, WithoutABusNobodyCallsAndNothingFails) {
  BusAutomation alone(nullptr);
  alone.Publish(server);
  alone.TellKeyboardEcho(true);
  alone.Withdraw();
  EXPECT_THAT(server.calls, IsEmpty());
  EXPECT_EQ(server.objects, 0);
  EXPECT_THAT(client.Create().error, HasSubstr("does not exist"));
}

}  // namespace
}  // namespace corvane::desktop::tests
