#include "deck_simulator/process/PluginArguments.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace deck;

class tst_PluginArguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheHostToThePlugin();
    void ordersThePluginArguments();
};

void tst_PluginArguments::namesTheHostToThePlugin()
{
    const QString text =
        hostInfo(QStringLiteral("zh_CN"),
                 {{QStringLiteral("Roboto-Bold"), QStringLiteral("/f/Bold.ttf")}}, QSize(5, 3));
    const QJsonObject info = QJsonDocument::fromJson(text.toUtf8()).object();
    QCOMPARE(info.value(QLatin1String("application"))
                 .toObject()
                 .value(QLatin1String("language"))
                 .toString(),
             QStringLiteral("zh_CN"));
    const QJsonArray fonts = info.value(QLatin1String("fonts")).toArray();
    QCOMPARE(fonts.size(), 1);
    const QJsonObject font = fonts.at(0).toObject();
    QCOMPARE(font.value(QLatin1String("name")).toString(), QStringLiteral("Roboto-Bold"));
    QCOMPARE(font.value(QLatin1String("url")).toString(), QStringLiteral("/f/Bold.ttf"));
}

void tst_PluginArguments::ordersThePluginArguments()
{
    const QStringList expected{QStringLiteral("-port"),          QStringLiteral("4711"),
                               QStringLiteral("-pluginUUID"),    QStringLiteral("id"),
                               QStringLiteral("-registerEvent"), QStringLiteral("register"),
                               QStringLiteral("-info"),          QStringLiteral("{}")};
    QCOMPARE(pluginArguments(4711, QStringLiteral("id"), QStringLiteral("register"),
                             QStringLiteral("{}")),
             expected);
}

QTEST_GUILESS_MAIN(tst_PluginArguments)
#include "tst_PluginArguments.moc"
