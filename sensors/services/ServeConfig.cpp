#include "sensors/services/ServeConfig.h"

#include <QString>
#include <QVariant>

namespace {

using Place = QByteArray::size_type;

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool isLineEnd(char character)
{
    return character == '\n' || character == '\r';
}

/// Whether a line end of two characters is at \a at.
bool hasWideLineEnd(const QByteArray &text, Place at)
{
    const QByteArray lineEnd = text.mid(at, 2);
    return lineEnd == "\r\n" || lineEnd == "\n\r";
}

/// One line of an INI file, which continues after a quoted or escaped line end.
struct Line
{
    QByteArray text;
    Place equals = -1; ///< Where the first sign of equality is.
};

/// The lines of an INI file, without comments and blank lines.
class Lines
{
public:
    explicit Lines(const QByteArray &text)
        : m_text(text)
    {
    }

    bool hasNext()
    {
        while (m_at < m_text.size() && (isBlank(m_text.at(m_at)) || m_text.at(m_at) == ';')) {
            if (m_text.at(m_at) == ';')
                skipComment();
            else
                ++m_at;
        }
        return m_at < m_text.size();
    }

    Line next()
    {
        const Place begin = m_at;
        Place equals = -1;
        bool isQuoted = false;
        for (; m_at < m_text.size(); ++m_at) {
            const char character = m_text.at(m_at);
            if (!isQuoted && (isLineEnd(character) || character == ';'))
                break;
            if (character == '"')
                isQuoted = !isQuoted;
            else if (character == '\\')
                skipEscape();
            else if (character == '=' && equals < 0)
                equals = m_at - begin;
        }
        m_at = qMin(m_at, m_text.size());
        return {m_text.mid(begin, m_at - begin), equals};
    }

private:
    void skipComment()
    {
        while (m_at < m_text.size() && !isLineEnd(m_text.at(m_at)))
            ++m_at;
    }

    /// To the last character of an escape sequence, which may be a line end of two.
    void skipEscape()
    {
        ++m_at;
        if (hasWideLineEnd(m_text, m_at))
            ++m_at;
    }

    const QByteArray m_text;
    Place m_at = 0;
};

/// "%6F" and "%U006F" are an o; a backslash separates groups.
QString unescapedName(const QByteArray &name)
{
    QString result;
    for (Place at = 0; at < name.size(); ++at) {
        const bool isWide = name.mid(at + 1, 1) == "U";
        const QByteArray digits = isWide ? name.mid(at + 2, 4) : name.mid(at + 1, 2);
        bool isNumber = false;
        const ushort code = digits.toUShort(&isNumber, 16);
        if (name.at(at) == '%' && isNumber && digits.size() == (isWide ? 4 : 2)) {
            result += QChar(code);
            at += digits.size() + (isWide ? 1 : 0);
        } else {
            result += QLatin1Char(name.at(at) == '\\' ? '/' : name.at(at));
        }
    }
    return result;
}

/// What the escape sequence from \a at on stands for, which is moved to its end: nothing where it
/// is none, as before a line end.
QString escaped(const QByteArray &value, Place &at)
{
    static const QByteArray letters = QByteArrayLiteral("abfnrtv\"?'\\");
    static const QString meanings = QStringLiteral("\a\b\f\n\r\t\v\"?'\\");
    const char first = value.at(at);
    if (const Place known = letters.indexOf(first); known >= 0) {
        ++at;
        return meanings.mid(known, 1);
    }
    const int base = first == 'x' ? 16 : 8;
    const Place begin = first == 'x' ? at + 1 : at;
    ushort code = 0;
    bool isDigit = true;
    for (at = begin; at < value.size(); ++at) {
        const ushort digit = value.mid(at, 1).toUShort(&isDigit, base);
        if (!isDigit)
            break;
        code = static_cast<ushort>(code * base + digit);
    }
    if (at > begin)
        return QString(QChar(code));
    if (first != 'x')
        at += hasWideLineEnd(value, at) ? 2 : 1;
    return {};
}

/// The text of \a value; empty when it is a list of several values.
QString unescapedValue(const QByteArray &value)
{
    QString result;
    bool isQuoted = false;
    for (Place at = 0; at < value.size();) {
        const char character = value.at(at++);
        if (character == '"')
            isQuoted = !isQuoted;
        else if (character == '\\' && at < value.size())
            result += escaped(value, at);
        else if (character == ',' && !isQuoted)
            return {};
        else if (character != '\\')
            result += QLatin1Char(character);
    }
    return result;
}

/// \a text without the marks of a value that is explicitly typed as a text.
QString unwrapped(const QString &text)
{
    for (const char *const mark : {"@String(", "@ByteArray("}) {
        const QString begin = QString::fromLatin1(mark);
        if (text.startsWith(begin) && text.endsWith(QLatin1Char(')')))
            return text.mid(begin.size()).chopped(1);
    }
    return text;
}

bool isName(const QByteArray &text, const char *name)
{
    return unescapedName(text.trimmed()).compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

int number(const QByteArray &value)
{
    return QVariant(unwrapped(unescapedValue(value.trimmed()))).toInt();
}

} // namespace

int configuredPort(const QByteArray &ini)
{
    const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");
    Lines lines(ini.startsWith(byteOrderMark) ? ini.mid(byteOrderMark.size()) : ini);
    bool inGroup = false;
    int port = -1;
    while (lines.hasNext()) {
        const Line line = lines.next();
        if (line.text.startsWith('['))
            inGroup = isName(line.text.mid(1, line.text.indexOf(']') - 1), "HWInfoServe");
        else if (inGroup && line.equals > 0 && isName(line.text.left(line.equals), "port"))
            port = number(line.text.mid(line.equals + 1));
    }
    return port;
}
