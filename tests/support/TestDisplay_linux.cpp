#include "tests/support/TestDisplay.h"

#include <QProcess>
#include <QProcessEnvironment>

struct TestDisplay::Server
{
    QProcess process;
    QString name;
};

TestDisplay::TestDisplay()
    : m_server(std::make_unique<Server>())
{
    QProcess &server = m_server->process;
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("1400x900x24"), QStringLiteral("-nolisten"),
                  QStringLiteral("tcp")});
    constexpr int patience = 10000;
    while (!server.canReadLine() && server.waitForReadyRead(patience)) {
    }
    if (server.canReadLine())
        m_server->name = QLatin1Char(':') + QString::fromLatin1(server.readLine().trimmed());
}

TestDisplay::~TestDisplay()
{
    QProcess &server = m_server->process;
    server.terminate();
    if (!server.waitForFinished(5000)) {
        server.kill();
        server.waitForFinished();
    }
}

bool TestDisplay::isThere() const
{
    return !m_server->name.isEmpty();
}

void TestDisplay::addTo(QProcessEnvironment &environment) const
{
    environment.insert(QStringLiteral("DISPLAY"), m_server->name);
}
