#include "tests/support/FakeHost.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/TallyHost.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

namespace {

void print(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void showKeys(TallyHost &host, int keys)
{
    const QJsonObject settings =
        FakeHost::keySettings({{QStringLiteral("fontSize"), 64},
                               {QStringLiteral("titleLines"), QStringLiteral("双行显示")}});
    for (int key = 0; key < keys; ++key)
        host.send(QStringLiteral("willAppear"), keyuuid::memory, QStringLiteral("key %1").arg(key),
                  settings);
}

} // namespace

/// host_process [KEYS]: a host in a process of its own, to be stopped and killed. It prints the
/// command line on which it wants the plugin started, then "registered" when it is and, each tenth
/// of a second, how many pictures its keys have been sent.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    TallyHost host;
    print(host.arguments().join(QLatin1Char(' ')));
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &host, [&host, registered = false]() mutable {
        if (registered)
            print(QString::number(host.pictures()));
        if (registered || !host.isRegistered())
            return;
        registered = true;
        print(QStringLiteral("registered"));
        showKeys(host, QCoreApplication::arguments().value(1).toInt());
    });
    timer.start(100);
    return QCoreApplication::exec();
}
