#pragma once

// Where Qt 5.15 and Qt 6 differ: nothing else asks which Qt it is compiled with.

#include <QCoreApplication>
#include <QHash>
#include <QProcess>

#include <functional>
#include <utility>

class QEnterEvent;
class QEvent;

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// What a widget's native event handler puts its result into.
using NativeEventResult = long;

/// What tells a widget that the pointer enters it.
using EnterEvent = QEvent;

/// A process that has a function run in the child between fork and exec (Linux).
class ModifiedProcess : public QProcess
{
public:
    using QProcess::QProcess;

    void setChildProcessModifier(const std::function<void()> &modifier) { m_modifier = modifier; }

protected:
    void setupChildProcess() override
    {
        if (m_modifier)
            m_modifier();
    }

private:
    std::function<void()> m_modifier;
};

/// Before the application is made: windows are as large as the display's scale asks for. Qt 6 does
/// that by itself.
inline void scaleWindowsForHighDpi()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

/// What the raster paint engine adds to the horizontal place of a glyph, in 64ths of a pixel,
/// before it cuts it off to a part of a pixel.
constexpr int addedToGlyphPlaces = 0;

#else

using NativeEventResult = qintptr;
using EnterEvent = QEnterEvent;
using ModifiedProcess = QProcess;

inline void scaleWindowsForHighDpi() {}

constexpr int addedToGlyphPlaces = 1;

#endif

/// Hash values, and the seeds that they are made from.
using HashValue = decltype(qHash(0));

/// The signal with which a QWebSocket reports an error.
template <typename WebSocket>
constexpr auto webSocketError()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
    return QOverload<decltype(std::declval<WebSocket>().error())>::of(&WebSocket::error);
#else
    return &WebSocket::errorOccurred;
#endif
}
