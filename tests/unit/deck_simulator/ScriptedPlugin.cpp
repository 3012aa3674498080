// A plugin that does what the environment variable SCRIPT says:
//   draw       registers, answers each willAppear with settings, a title and a picture, and ends
//              with status 0 when its link closes
//   bare       as draw, with the title of a reading that the machine does not have
//   blank      as draw, with the pictures of empty readings
//   half       as draw, but draws on the first key only
//   impostor   registers with a wrong uuid
//   mute       never connects
//   freeze     as panel, but when a key is pressed it stands still until there is a file "go" in
//   its
//              working folder
//   refuse     writes to standard error and ends with status 3 at once
//   die        as draw, but kills itself once it has drawn
//   leave      as draw, but closes its link after the first key
//   stubborn   as draw, but stays when its link closes
//   panel      as draw, answers didReceiveSettings likewise, and keeps in its working folder what
//   it
//              receives (received.txt) and when (times.txt: milliseconds and event), its -info
//              (info.txt) and the recording that it was given (recording.txt)

#include <QBuffer>
#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QWebSocket>

#include <cstdio>
#include <cstdlib>

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

// As large as a text; square where a gauge is asked for.
QString picture(bool gauge)
{
    QImage image(60, gauge ? 60 : 20, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (qgetenv("SCRIPT") != "blank")
        image.save(&buffer, "png");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

void sendForKey(QWebSocket &link, const QString &event, const QString &context,
                const QJsonObject &payload)
{
    link.sendTextMessage(compact({{QStringLiteral("event"), event},
                                  {QStringLiteral("context"), context},
                                  {QStringLiteral("payload"), payload}}));
}

void drawKey(QWebSocket &link, const QJsonObject &appearance)
{
    const bool bare = qgetenv("SCRIPT") == "bare";
    const QString context = appearance.value(QLatin1String("context")).toString();
    QJsonObject settings = appearance.value(QLatin1String("payload"))
                               .toObject()
                               .value(QLatin1String("settings"))
                               .toObject();
    const bool gauge =
        settings.value(QLatin1String("display")).toObject().contains(QLatin1String("style"));
    settings.insert(QStringLiteral("seen"), true);
    sendForKey(link, QStringLiteral("setSettings"), context, settings);
    sendForKey(
        link, QStringLiteral("setTitle"), context,
        {{QStringLiteral("title"), bare ? QStringLiteral("nodata") : QStringLiteral("drawn")}});
    sendForKey(link, QStringLiteral("setImage"), context,
               {{QStringLiteral("image"), picture(gauge)}});
}

void keep(const char *fileName, const QString &text)
{
    QFile file(QString::fromLatin1(fileName));
    if (file.open(QIODevice::Append))
        file.write(text.toUtf8() + '\n');
}

void onEvent(QWebSocket &link, const QByteArray &script, const QString &text)
{
    static int appearances = 0;
    const QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
    const QString event = message.value(QLatin1String("event")).toString();
    if (script == "panel" || script == "freeze") {
        keep("received.txt", text);
        keep("times.txt",
             QString::number(QDateTime::currentMSecsSinceEpoch()) + QLatin1Char(' ') + event);
        if (event == QLatin1String("didReceiveSettings"))
            drawKey(link, message);
    }
    if (script == "freeze" && event == QLatin1String("keyDown")) {
        while (!QFile::exists(QStringLiteral("go")))
            QThread::msleep(20);
    }
    if (event != QLatin1String("willAppear"))
        return;
    ++appearances;
    if (script == "half" && appearances > 1)
        return;
    drawKey(link, message);
    if (script == "leave")
        link.close();
    if (script == "die") {
        link.flush();
        std::abort();
    }
}

QString argumentAfter(const QStringList &arguments, const QString &name)
{
    return arguments.value(arguments.indexOf(name) + 1);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QByteArray script = qgetenv("SCRIPT");
    const QStringList arguments = QCoreApplication::arguments();
    if (script == "refuse" || arguments.size() != 9) {
        std::fputs("first line\nthis plugin \x1b[31mrefuses\n", stderr);
        return 3;
    }

    if (script == "panel" || script == "freeze") {
        keep("info.txt", argumentAfter(arguments, QStringLiteral("-info")));
        keep("recording.txt", qEnvironmentVariable("SYSTEM_MONITOR_RECORDING"));
    }
    QWebSocket link;
    QObject::connect(&link, &QWebSocket::connected, &link, [&] {
        const QString uuid = script == "impostor"
                                 ? QStringLiteral("somebody else")
                                 : argumentAfter(arguments, QStringLiteral("-pluginUUID"));
        link.sendTextMessage(compact(
            {{QStringLiteral("event"), argumentAfter(arguments, QStringLiteral("-registerEvent"))},
             {QStringLiteral("uuid"), uuid}}));
    });
    QObject::connect(&link, &QWebSocket::textMessageReceived, &link,
                     [&](const QString &text) { onEvent(link, script, text); });
    // Queued behind the messages that came together with the end of the link.
    QObject::connect(
        &link, &QWebSocket::disconnected, &application,
        [&] {
            if (script != "stubborn")
                QCoreApplication::quit();
        },
        Qt::QueuedConnection);
    if (script != "mute")
        link.open(QUrl(QStringLiteral("ws://127.0.0.1:") +
                       argumentAfter(arguments, QStringLiteral("-port"))));
    return QCoreApplication::exec();
}
