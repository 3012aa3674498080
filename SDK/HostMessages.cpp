#include "SDK/HostMessages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringBuilder>

#include <algorithm>
#include <numeric>

namespace {

QString compact(const QJsonObject &message)
{
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

/// Whether \a character may need to be escaped in a JSON string.
bool isSpecial(ushort character)
{
    constexpr ushort firstPrintable = 0x20;
    constexpr ushort surrogates = 0xd800;
    constexpr ushort surrogateMask = 0xf800;
    return character < firstPrintable || character == '"' || character == '\\' ||
           (character & surrogateMask) == surrogates;
}

/// Whether no character is special and none beyond the first half of the code units. The loop has
/// no early exit and no type wider than a character, so that the compiler can vectorise it.
bool isSurelyPlain(const QString &text)
{
    constexpr short firstPrintable = 0x20;
    const auto *const begin = reinterpret_cast<const short *>(text.utf16());
    return std::accumulate(begin, begin + text.size(), short{0}, [](short found, short each) {
               const bool isOther = each < firstPrintable || each == '"' || each == '\\';
               return static_cast<short>(found | short{isOther});
           }) == 0;
}

bool isPlain(const QString &text)
{
    const ushort *const begin = text.utf16();
    return isSurelyPlain(text) || std::none_of(begin, begin + text.size(), isSpecial);
}

/// \a text as a JSON string, without its quotation marks.
QString escaped(const QString &text)
{
    if (isPlain(text))
        return text;
    const QString array =
        QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
    constexpr int bracketAndMark = 2;
    return array.mid(bracketAndMark, array.size() - 2 * bracketAndMark);
}

/// The members "state" and "target", which are sorted by name.
QString targetAndState(int target, int state)
{
    const QString written = QStringLiteral("\"target\":") % QString::number(target);
    // Compatibility: state-left-out
    return state >= 0 ? QStringLiteral("\"state\":") % QString::number(state) % u',' % written
                      : written;
}

QString withPrefix(const QString &image)
{
    const QLatin1String prefix("data:image/png;base64,");
    // Compatibility: prefix-case
    return image.isEmpty() || image.startsWith(prefix) ? image : prefix + image;
}

} // namespace

namespace hostmessages {

QString registration(const QString &registerEvent, const QString &pluginUUID)
{
    return compact(
        {{QStringLiteral("event"), registerEvent}, {QStringLiteral("uuid"), pluginUUID}});
}

// Both are sent to each key once a second, and a picture has some thousand characters: the string
// builder concatenates them with a single allocation.

QString setTitle(const QString &title, const QString &context, int target, int state)
{
    return QStringLiteral("{\"context\":\"") % escaped(context) %
           QStringLiteral("\",\"event\":\"setTitle\",\"payload\":{") %
           targetAndState(target, state) % QStringLiteral(",\"title\":\"") % escaped(title) %
           QStringLiteral("\"}}");
}

QString setImage(const QString &image, const QString &context, int target, int state)
{
    return QStringLiteral("{\"context\":\"") % escaped(context) %
           QStringLiteral("\",\"event\":\"setImage\",\"payload\":{\"image\":\"") %
           escaped(withPrefix(image)) % QStringLiteral("\",") % targetAndState(target, state) %
           QStringLiteral("}}");
}

QString setSettings(const QJsonObject &payload, const QString &context)
{
    return compact({{QStringLiteral("event"), QStringLiteral("setSettings")},
                    {QStringLiteral("context"), context},
                    {QStringLiteral("payload"), payload}});
}

} // namespace hostmessages
