#include "deck_simulator/terminal/Terminal.h"

#include <windows.h>

namespace deck {

class Terminal::Private
{
public:
    HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    bool isConsole = false;
    bool interactive = false;
    DWORD mode = 0;
};

Terminal::Terminal()
    : d(std::make_unique<Private>())
{
    d->isConsole = GetConsoleMode(d->output, &d->mode) != 0;
    d->interactive = d->isConsole &&
                     SetConsoleMode(d->output, d->mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

Terminal::~Terminal()
{
    if (d->isConsole)
        SetConsoleMode(d->output, d->mode);
}

bool Terminal::isInteractive() const
{
    return d->interactive;
}

QSize Terminal::size() const
{
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(d->output, &info) == 0)
        return {80, 24};
    return {info.srWindow.Right - info.srWindow.Left + 1,
            info.srWindow.Bottom - info.srWindow.Top + 1};
}

bool Terminal::write(const QByteArray &text)
{
    DWORD written = 0;
    if (d->isConsole) {
        const std::wstring wide = QString::fromUtf8(text).toStdWString();
        return WriteConsoleW(d->output, wide.data(), DWORD(wide.size()), &written, nullptr) != 0;
    }
    const char *next = text.constData();
    auto left = DWORD(text.size());
    while (left > 0) {
        if (WriteFile(d->output, next, left, &written, nullptr) == 0)
            return false;
        next += written;
        left -= written;
    }
    return true;
}

} // namespace deck
