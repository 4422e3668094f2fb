// What the engine and the toolkit cost by themselves: one window with one view in it,
// and nothing of this program. The benchmarks put its figures beside the program's.
//   bare_view [ADDRESS]   says "loaded" on its standard output once the page is there
#include <webkit2/webkit2.h>

namespace {

void OnLoad(WebKitWebView*, WebKitLoadEvent event, gpointer) {
  if (event == WEBKIT_LOAD_FINISHED) g_print("loaded\n");
}

}  // namespace

int main(int argc, char** argv) {
  gtk_init(&argc, &argv);
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(window), "Bare view");
  gtk_window_maximize(GTK_WINDOW(window));
  GtkWidget* view = webkit_web_view_new();
  webkit_settings_set_hardware_acceleration_policy(
      webkit_web_view_get_settings(WEBKIT_WEB_VIEW(view)),
      WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
  g_signal_connect(view, "load-changed", G_CALLBACK(OnLoad), nullptr);
  g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
  gtk_container_add(GTK_CONTAINER(window), view);
  gtk_widget_show_all(window);
  if (argc > 1) webkit_web_view_load_uri(WEBKIT_WEB_VIEW(view), argv[1]);
  gtk_main();
  return 0;
}
