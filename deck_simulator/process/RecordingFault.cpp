#include "deck_simulator/process/RecordingFault.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace deck {

QString recordingFault(const QString &fileName)
{
    // Opening a pipe would wait for its writer.
    if (!QFileInfo(fileName).isFile())
        return QStringLiteral("there is no such file");
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        return QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    return document.isObject() ? QString() : QStringLiteral("it is no JSON object");
}

} // namespace deck
