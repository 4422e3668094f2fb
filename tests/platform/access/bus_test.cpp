#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/platform/access/access_fixture.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kAddress = "AT_SPI_BUS_ADDRESS";
constexpr const char* kNone = "Accessibility is not available: its service cannot be reached.";

/// A bus of the test's own in the place of the desktop's.
class OwnBus {
 public:
  OwnBus() {
    const std::string listen = "--address=" + address_;
    const char* command[] = {"dbus-daemon", "--session", "--nofork", listen.c_str(), nullptr};
    EXPECT_TRUE(
        g_spawn_async(nullptr, const_cast<gchar**>(command), nullptr,
                      static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD),
                      nullptr, nullptr, &pid_, nullptr));
    EXPECT_TRUE(WaitUntil([&] {
      g_main_context_wakeup(nullptr);
      // Its socket is there a moment before it listens.
      const ObjectPtr<GIOStream> stream(
          g_dbus_address_get_stream_sync(address_.c_str(), nullptr, nullptr, nullptr));
      return stream != nullptr;
    }));
  }
  ~OwnBus() { End(); }
  /// Ends the bus as a crash would: its socket stays behind.
  void End() {
    if (pid_ == 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }
  const std::string& Address() const { return address_; }

 private:
  const test::TemporaryFolder folder_;
  const std::string address_ = "unix:path=" + folder_ / "bus";
  GPid pid_ = 0;
};

class AccessBusTest : public AccessTest {
 protected:
  ~AccessBusTest() override { g_unsetenv(kAddress); }
  void UseBus(const std::string& address) {
    g_setenv(kAddress, address.c_str(), TRUE);
    accessibility_ = std::make_unique<LinuxAccessibility>(windows_);
    problems_.Clear();
    problems_ += accessibility_->Problem.Connect(
        [this](const std::string& problem) { said_.push_back(problem); });
  }
};

TEST_F(AccessBusTest, MissingBusIsToldInASentence) {
  UseBus("unix:path=/nonexistent/bus");
  FetchOnce();
  EXPECT_THAT(said_, ElementsAre(kNone));
  EXPECT_EQ(accessibility_->ObjectFromWindow(browser_->hwnd(), kObjectClient), nullptr);
}

TEST_F(AccessBusTest, AddressThatIsNoneIsToldToo) {
  UseBus("nonsense");
  FetchOnce();
  EXPECT_THAT(said_, ElementsAre(kNone));
}

TEST_F(AccessBusTest, StaleSocketIsToldAndHarmsNothing) {
  OwnBus bus;
  bus.End();
  UseBus(bus.Address());
  FetchOnce();
  EXPECT_THAT(said_, ElementsAre(kNone));
}

TEST_F(AccessBusTest, BusThatDiesIsToldAndTheNextRequestFindsNone) {
  OwnBus bus;
  UseBus(bus.Address());
  FetchOnce();
  EXPECT_THAT(said_, IsEmpty());
  bus.End();
  EXPECT_TRUE(WaitUntil([&] { return !said_.empty(); }));
  FetchOnce();
  EXPECT_THAT(said_, ElementsAre("Accessibility has ended: its service is gone.", kNone));
}

TEST_F(AccessBusTest, OwnWindowsNeedNoBus) {
  UseBus("unix:path=/nonexistent/bus");
  const auto window = accessibility_->ObjectFromWindow(top_, kObjectClient);
  ASSERT_TRUE(window);
  EXPECT_EQ(window->Text(AccessibleText::Name, {}), "Elements");
  EXPECT_EQ(window->Role({}), 9);
  EXPECT_GT(window->ChildCount(), 0);
}

TEST_F(AccessBusTest, ProgramEndsWhileARequestIsUnderWay) {
  server_.Page("/page.html", "<title>Page</title><p>Text");
  Go(server_.Url("/page.html"));
  auto fetching = accessibility_->Fetch({browser_->hwnd()}, Accessibility::Depth::All,
                                        [] { ADD_FAILURE() << "done"; });
  accessibility_.reset();
}

}  // namespace
}  // namespace corvane::desktop
