#include "deck_simulator/process/PluginArguments.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

namespace deck {

QString hostInfo(const QString &language, const QVector<FontFile> &fonts, const QSize &grid)
{
    const QJsonObject application{
        {QStringLiteral("language"), language},
        {QStringLiteral("platform"), QSysInfo::kernelType()},
        {QStringLiteral("version"), QStringLiteral("deck_simulator")},
    };
    const QJsonObject size{{QStringLiteral("columns"), grid.width()},
                           {QStringLiteral("rows"), grid.height()}};
    QJsonArray fontList;
    for (const FontFile &font : fonts)
        fontList.append(
            QJsonObject{{QStringLiteral("name"), font.name}, {QStringLiteral("url"), font.path}});
    const QJsonObject info{
        {QStringLiteral("application"), application},
        {QStringLiteral("devices"), QJsonArray{QJsonObject{{QStringLiteral("size"), size}}}},
        {QStringLiteral("fonts"), fontList},
    };
    return QString::fromUtf8(QJsonDocument(info).toJson(QJsonDocument::Compact));
}

QStringList pluginArguments(quint16 port, const QString &pluginUUID, const QString &registerEvent,
                            const QString &info)
{
    return {QStringLiteral("-port"),          QString::number(port),
            QStringLiteral("-pluginUUID"),    pluginUUID,
            QStringLiteral("-registerEvent"), registerEvent,
            QStringLiteral("-info"),          info};
}

} // namespace deck
