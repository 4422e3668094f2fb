#include <glibmm/exceptionhandler.h>
#include <gtkmm/main.h>

#include <clocale>
#include <string>

#include "app/Multithread.h"
#include "platform/linux/access/stale_bus.h"
#include "platform/linux/automation/hand_over.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/store/log.h"
#include "platform/linux/web/drawing.h"

namespace {

using corvane::desktop::LinuxDesktop;

constexpr int kWrongUse = 2;

// The session bus says so when it starts the program for a client. What this
// program starts in its turn is not started by that client. An address comes from
// a person, also where the desktop's own parts were started by the bus.
LinuxDesktop::StartedBy WhoStarted(const std::string& address) {
  const bool automation = g_getenv("DBUS_STARTER_ADDRESS") != nullptr && address.empty();
  g_unsetenv("DBUS_STARTER_ADDRESS");
  g_unsetenv("DBUS_STARTER_BUS_TYPE");
  return automation ? LinuxDesktop::StartedBy::Automation : LinuxDesktop::StartedBy::Person;
}

}  // namespace

/// Composition root: opens the display, makes the Linux desktop and hands it to
/// the program. The one argument, an address, goes to a program that runs already.
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  corvane::desktop::StartLog();
  corvane::desktop::DrawByProcessor();
  corvane::desktop::ForgetStaleBus();
  const bool display = gtk_init_check(&argc, &argv) != FALSE;  // takes GTK's own arguments
  if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
    g_printerr("Usage: corvane [ADDRESS]\n");
    return kWrongUse;
  }
  const std::string address = argc == 2 ? corvane::desktop::GivenAddress(argv[1]) : "";
  if (!address.empty() && corvane::desktop::HandOver(address)) return 0;
  if (!display) {
    g_printerr("Corvane needs a graphical session: the display cannot be opened.\n");
    return 1;
  }
  Gtk::Main::init_gtkmm_internals();
  LinuxDesktop desktop(WhoStarted(address));
  Glib::add_exception_handler(sigc::mem_fun(desktop, &LinuxDesktop::ShowEscapedError));
  corvane::Multithread process(desktop);
  process.StartWith(address);
  process.Main();
  desktop.Run();
  return 0;
}
