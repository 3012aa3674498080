#include "render/FontRegistry.h"

#include "SDK/Logger/Logger.h"
#include "sensors/systemInfor.h"

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

QString fullSpec(const QString &family, const QString &style)
{
    return family + QLatin1Char('|') + style;
}

/// The first listed style of a family goes by the bare family; the default key font keeps its
/// style.
QString listedSpec(const QString &family, const QString &style, bool firstOfFamily)
{
    const QString spec = fullSpec(family, style);
    return firstOfFamily && spec != QLatin1String("Roboto|Bold") ? family : spec;
}

void listFamily(const QString &family, const QFileInfo &file)
{
    bool first = true;
    const QStringList styles = QFontDatabase().styles(family);
    for (const QString &style : styles) {
        if (fullSpec(family, style) == QLatin1String("Roboto Light|Regular"))
            continue;
        const QString spec = listedSpec(family, style, first);
        first = false;
        if (listedSpecs().contains(spec))
            continue;
        listedSpecs().insert(spec);
        systemInfor::fontlist_one.append({family, style, file.absoluteFilePath(), file.baseName(),
                                          file.baseName() + QLatin1Char(' ') + style, spec});
        LogDebug(QStringLiteral("  %1  [%2]").arg(family, style));
    }
}

/// Anything but a regular file is refused: reading a pipe or a device might never end.
int registerFile(const QString &path)
{
    return QFileInfo(path).isFile() ? QFontDatabase::addApplicationFont(path) : -1;
}

} // namespace

namespace fontregistry {

QVector<FontFile> loadFontList(const QString &infoJson)
{
    QString text = infoJson;
    text.replace(QLatin1Char('\''), QLatin1Char('"'));
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
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

void loadFont(const QString &path)
{
    const int id = registerFile(path);
    if (id < 0) {
        LogDebug(path + QStringLiteral(" loaded failed"));
        return;
    }
    LogDebug(path + QStringLiteral(" loaded success, contains:"));
    const QFileInfo file(path);
    QSet<QString> seen;
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    for (const QString &family : families) {
        if (seen.contains(family.trimmed()))
            continue;
        seen.insert(family);
        listFamily(family, file);
    }
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
    const int bar = spec.indexOf(QLatin1Char('|'));
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
