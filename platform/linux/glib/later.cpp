#include "platform/linux/glib/later.h"

#include <gio/gio.h>
#include <glibmm/exceptionhandler.h>
#include <malloc.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

using Action = std::function<void()>;

gboolean RunOnce(gpointer action) {
  (*static_cast<Action*>(action))();
  return G_SOURCE_REMOVE;
}

gboolean RunWhenNothingIsUnderWay(gpointer action) {
  return g_main_depth() > 1 ? G_SOURCE_CONTINUE : RunOnce(action);
}

void Forget(gpointer action) { delete static_cast<Action*>(action); }

void Post(GMainContext* context, int priority, Action action) {
  const Owned<GSource, g_source_unref> source(g_idle_source_new());
  g_source_set_priority(source.get(), priority);
  g_source_set_callback(source.get(), &RunOnce, new Action(std::move(action)), &Forget);
  g_source_attach(source.get(), context);
}

}  // namespace

// The user is shown what escapes from an action.
void PostToLoop(Action action, Turn turn) {
  Post(nullptr, static_cast<int>(turn), [action = std::move(action)] {
    try {
      action();
    } catch (...) {
      Glib::exception_handlers_invoke();
    }
  });
}

void PostTo(GMainContext* context, Action action) {
  Post(context, G_PRIORITY_DEFAULT, std::move(action));
}

void PostWhenNothingIsUnderWay(Action action) {
  constexpr guint kAskAgain = 20;  // milliseconds
  g_timeout_add_full(G_PRIORITY_DEFAULT, kAskAgain, &RunWhenNothingIsUnderWay,
                     new Action(std::move(action)), &Forget);
}

void OnWorker(std::function<void()> work) {
  using Work = std::function<void()>;
  const ObjectPtr<GTask> task(g_task_new(nullptr, nullptr, nullptr, nullptr));
  g_task_set_task_data(task.get(), new Work(std::move(work)),
                       [](gpointer each) { delete static_cast<Work*>(each); });
  g_task_run_in_thread(task.get(), [](GTask* running, gpointer, gpointer each, GCancellable*) {
    (*static_cast<Work*>(each))();
    g_task_return_boolean(running, TRUE);
  });
}

std::shared_ptr<void> After(double seconds, Action action) {
  auto delay = std::make_shared<Delay>();
  delay->Start(seconds, std::move(action));
  return delay;
}

void DoAside(Weight weight, std::function<Action()> work) {
  OnWorker([weight, work = std::move(work)]() mutable {
    PostToLoop(work(), Turn::InTurn);
    work = nullptr;
    // What was made lies between the holes of what it was made from.
    if (weight == Weight::Heavy) malloc_trim(0);
  });
}

Schedule LoopSchedule() {
  return {&After, &DoAside,
          [] { return static_cast<double>(g_get_monotonic_time()) / G_USEC_PER_SEC; }};
}

void Delay::Start(double seconds, Action run) {
  Cancel();
  run_ = std::move(run);
  source_ = g_timeout_add(
      static_cast<guint>(seconds * 1000),
      [](gpointer self) -> gboolean {
        auto* delay = static_cast<Delay*>(self);
        delay->source_ = 0;
        const auto due = std::move(delay->run_);  // may start again or destroy the delay
        due();
        return G_SOURCE_REMOVE;
      },
      this);
}

}  // namespace corvane::desktop
