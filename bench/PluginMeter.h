#pragma once

#include "bench/ProcessUsage.h"

#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <QWebSocketServer>

class QWebSocket;

/// Acts as the host of one plugin, whoever made it: starts it, shows it a deck and measures it
/// from the first picture on.
class PluginMeter : public QObject
{
    Q_OBJECT

public:
    struct Task
    {
        QString program;
        QStringList arguments; ///< Precede those that a host gives.
        int keys = 32;
        QString style;         ///< Of the keys' gauges; texts if empty.
        int seconds = 10;      ///< Duration of the measurement.
        int sampleSeconds = 0; ///< Interval of the lines on memory; 0 for none.
    };

    explicit PluginMeter(const Task &task, QObject *parent = nullptr);
    ~PluginMeter() override;

    /// False when the plugin cannot be started.
    bool start();

Q_SIGNALS:
    /// The results have been printed as one JSON object on standard output. If the plugin ended
    /// earlier, this is printed on standard error, and \a succeeded is false.
    void finished(bool succeeded);

private:
    void takeLink();
    void take(const QString &text);
    void showDeck(QWebSocket &link) const;
    void beginMeasuring();
    void sample();
    void report();
    [[nodiscard]] ProcessUsage usage() const;
    [[nodiscard]] QStringList hostArguments() const;

    Task m_task;
    QProcess m_plugin;
    QWebSocketServer m_server;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceMeasuring;
    QTimer m_sampleTimer;
    ProcessUsage m_first;
    qint64 m_registered = -1; ///< Milliseconds after the start.
    qint64 m_firstPicture = -1;
    quint64 m_pictures = 0;
    quint64 m_bytes = 0;
    bool m_reported = false;
};
