#include "deck_simulator/terminal/InterruptWatcher.h"

#include <QMetaObject>

#include <atomic>

#include <windows.h>

namespace deck {

namespace {

std::atomic<InterruptWatcher *> theWatcher{nullptr};

// Windows calls this on a thread of its own.
BOOL WINAPI onConsoleEvent(DWORD event)
{
    InterruptWatcher *const watcher = theWatcher;
    if (watcher == nullptr)
        return FALSE;
    QMetaObject::invokeMethod(watcher, &InterruptWatcher::interrupted, Qt::QueuedConnection);
    // The process is ended as soon as the handler returns from a closed console.
    if (event == CTRL_CLOSE_EVENT)
        Sleep(INFINITE);
    return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? TRUE : FALSE;
}

} // namespace

class InterruptWatcher::Private
{
};

InterruptWatcher::InterruptWatcher(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    theWatcher = this;
    SetConsoleCtrlHandler(onConsoleEvent, TRUE);
}

InterruptWatcher::~InterruptWatcher()
{
    SetConsoleCtrlHandler(onConsoleEvent, FALSE);
    theWatcher = nullptr;
}

} // namespace deck
