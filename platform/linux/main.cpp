#include <glibmm/exceptionhandler.h>
#include <gtkmm/main.h>

#include <clocale>

#include "app/Multithread.h"
#include "platform/linux/linux_desktop.h"

/// Composition root: opens the display, makes the Linux desktop and hands it to
/// the program.
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  if (!gtk_init_check(&argc, &argv)) {
    g_printerr("Corvane needs a graphical session: the display cannot be opened.\n");
    return 1;
  }
  Gtk::Main::init_gtkmm_internals();
  corvane::desktop::LinuxDesktop desktop;
  Glib::add_exception_handler(
      sigc::mem_fun(desktop, &corvane::desktop::LinuxDesktop::ShowEscapedError));
  corvane::Multithread process(desktop);
  process.Main();
  desktop.Run();
  return 0;
}
