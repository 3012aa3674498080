#include "deck_simulator/process/PrintableText.h"

#include <QChar>
#include <QVector>

namespace deck {

namespace {

QString printableCharacter(char32_t code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Format:
        return {};
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return QString(QChar(QChar::ReplacementCharacter));
    default:
        return QString::fromUcs4(&code, 1);
    }
}

} // namespace

QString printable(const QString &text)
{
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(QLatin1Char('\n'), QLatin1String(" / "));
    lines.replace(QLatin1Char('\t'), QLatin1Char(' '));
    QString result;
    for (const uint code : lines.toUcs4())
        result += printableCharacter(code);
    return result;
}

} // namespace deck
