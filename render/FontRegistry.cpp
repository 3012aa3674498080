#include "render/FontRegistry.h"

#include "SDK/Logger/Logger.h"
#include "render/FontFile.h"
#include "sensors/systemInfor.h"
#include "json/ParseJson.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

/// The specifications listed so far, over all files.
QSet<QString> &listedSpecs()
{
    static QSet<QString> specs;
    return specs;
}

void list(const QVector<FontRecord> &records)
{
    for (const FontRecord &record : records) {
        if (listedSpecs().contains(record.spec))
            continue;
        listedSpecs().insert(record.spec);
        systemInfor::fontlist_one.append(record);
        LogDebug(QStringLiteral("  %1  [%2]").arg(record.family, record.style));
    }
}

/// Well above the largest font collections; a file is read completely.
constexpr qint64 largestFile = qint64(512) * 1024 * 1024;

/// Anything but a regular file with a size is refused: reading a pipe or a device might never end.
int registerFile(const QString &path)
{
    const QFileInfo file(path);
    const bool readable = file.isFile() && file.size() > 0 && file.size() <= largestFile;
    return readable && isSafeFontFile(path) ? QFontDatabase::addApplicationFont(path) : -1;
}

} // namespace

namespace fontregistry {

QVector<FontFile> loadFontList(const QString &infoJson)
{
    QString text = infoJson;
    text.replace(QLatin1Char('\''), QLatin1Char('"'));
    const QJsonDocument document = parseJson(text.toUtf8());
    if (!document.isObject()) {
        LogDebug(QStringLiteral("Invalid JSON format"));
        return {};
    }
    QVector<FontFile> files;
    const QJsonArray fonts = document.object().value(QLatin1String("fonts")).toArray();
    for (const QJsonValue font : fonts) {
        if (font.isObject()) {
            files.append({font.toObject().value(QLatin1String("name")).toString(),
                          font.toObject().value(QLatin1String("url")).toString()});
        }
    }
    return files;
}

QVector<FontRecord> recordsOf(const QString &family, const QStringList &styles, const QString &path)
{
    const QFileInfo file(path);
    QVector<FontRecord> records;
    for (const QString &style : styles) {
        const QString full = family + QLatin1Char('|') + style;
        // Compatibility: font-specs
        if (full == QLatin1String("Roboto Light|Regular"))
            continue;
        const bool bare = records.isEmpty() && full != QLatin1String("Roboto|Bold");
        records.append({family, style, file.absoluteFilePath(), file.baseName(),
                        file.baseName() + QLatin1Char(' ') + style, bare ? family : full});
    }
    return records;
}

QStringList distinctFamilies(const QStringList &families)
{
    QStringList distinct;
    for (const QString &family : families) {
        if (!distinct.contains(family.trimmed()))
            distinct.append(family);
    }
    return distinct;
}

void loadFont(const QString &path)
{
    const int id = registerFile(path);
    if (id < 0) {
        LogDebug(path + QStringLiteral(" loaded failed"));
        return;
    }
    LogDebug(path + QStringLiteral(" loaded success, contains:"));
    const QStringList families = distinctFamilies(QFontDatabase::applicationFontFamilies(id));
    for (const QString &family : families)
        list(recordsOf(family, QFontDatabase().styles(family), path));
}

QString inferStyleFromName(const QString &spec)
{
    LogDebug(labelled("进行匹配的字符串: ", spec));
    const auto &records = systemInfor::fontlist_one;
    const auto record = std::find_if(records.begin(), records.end(),
                                     [&spec](const FontRecord &each) { return each.spec == spec; });
    if (record == records.end())
        return {};
    static const QRegularExpression styleAtEnd(QStringLiteral("(roman|bold|light|italic|regular)$"),
                                               QRegularExpression::CaseInsensitiveOption);
    return styleAtEnd.match(record->displayName).captured();
}

QFont fontFromSpec(const QString &spec, int pointSize)
{
    const auto bar = spec.indexOf(QLatin1Char('|'));
    const QString family = spec.left(bar);
    QString style = bar >= 1 ? spec.mid(bar + 1) : QString();
    if (!style.isEmpty()) {
        QFont font = QFontDatabase().font(family, style, pointSize);
        if (!font.exactMatch())
            font.setStyleName(style);
        return font;
    }
    style = inferStyleFromName(spec);
    LogDebug(labelled("尝试从文件结尾的类型判断: ", style));
    if (!style.isEmpty())
        return QFontDatabase().font(family, style, pointSize);
    QFont font;
    font.setFamily(family);
    return font;
}

} // namespace fontregistry
