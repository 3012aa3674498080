// The least that a plugin takes that also has what this one cannot do without: a window of Qt's
// widgets and the sound library.

#include "bench/BarePlugin.h"

#include <QApplication>
#include <QWidget>

#include <pulse/thread-mainloop.h>

#include <memory>

namespace {

struct LoopDeleter
{
    void operator()(pa_threaded_mainloop *loop) const { pa_threaded_mainloop_free(loop); }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QWidget window;
    const std::unique_ptr<pa_threaded_mainloop, LoopDeleter> loop(pa_threaded_mainloop_new());
    return runBarePlugin();
}
