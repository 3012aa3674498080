#include "bench/BarePlugin.h"

#include "json/ParseJson.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QPainter>
#include <QTimer>
#include <QUrl>
#include <QWebSocket>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr int pixelSize = 28;

QString valueOf(const char *name)
{
    const QStringList arguments = QCoreApplication::arguments();
    return arguments.value(arguments.indexOf(QLatin1String(name)) + 1);
}

void loadFonts()
{
    const QJsonArray fonts =
        parseJson(valueOf("-info").toUtf8()).object().value(QLatin1String("fonts")).toArray();
    for (const QJsonValue font : fonts)
        QFontDatabase::addApplicationFont(font.toObject().value(QLatin1String("url")).toString());
}

QString pictureOf(const QString &text)
{
    QFont font(QStringLiteral("Roboto"));
    font.setBold(true);
    font.setPixelSize(pixelSize);
    const QFontMetrics metrics(font);
    QImage picture(metrics.horizontalAdvance(text), metrics.height(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(picture.rect(), Qt::AlignCenter, text);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "png");
    return QString::fromLatin1(png.toBase64());
}

} // namespace

int runBarePlugin()
{
    QWebSocket host;
    QTimer timer;
    QObject::connect(&host, &QWebSocket::connected, &timer, [&] {
        host.sendTextMessage(QStringLiteral(R"({"event":"%1","uuid":"%2"})")
                                 .arg(valueOf("-registerEvent"), valueOf("-pluginUUID")));
        loadFonts();
        timer.start(1s);
    });
    QObject::connect(&host, &QWebSocket::disconnected, qApp, &QCoreApplication::quit);
    QObject::connect(&timer, &QTimer::timeout, &host, [&] {
        host.sendTextMessage(
            QStringLiteral(R"({"event":"setImage","context":"0","payload":{"image":"%1"}})")
                .arg(pictureOf(QStringLiteral("CPU: 37%"))));
    });
    host.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(valueOf("-port"))));
    return QGuiApplication::exec();
}
