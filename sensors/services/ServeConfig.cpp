#include "sensors/services/ServeConfig.h"

#include <QString>
#include <QVariant>

namespace {

/// \a value without quotation marks, or without the comment behind it.
QByteArray bare(const QByteArray &value)
{
    const bool isMarked = value.startsWith('"');
    const int begin = isMarked ? 1 : 0;
    const int end = value.indexOf(isMarked ? '"' : ';', begin);
    return end < 0 ? value : value.mid(begin, end - begin);
}

bool isName(const QByteArray &text, const char *name)
{
    return qstricmp(text.trimmed().constData(), name) == 0;
}

int number(const QByteArray &value)
{
    return QVariant(QString::fromLatin1(bare(value.trimmed()))).toInt();
}

} // namespace

int configuredPort(const QByteArray &ini)
{
    const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");
    QByteArray text = ini.startsWith(byteOrderMark) ? ini.mid(byteOrderMark.size()) : ini;
    text.replace('\r', '\n');
    bool inGroup = false;
    int port = -1;
    for (const QByteArray &whole : text.split('\n')) {
        const QByteArray line = whole.trimmed();
        const int equals = line.indexOf('=');
        if (line.startsWith('['))
            inGroup = isName(line.mid(1, line.indexOf(']') - 1), "HWInfoServe");
        else if (inGroup && equals > 0 && isName(line.left(equals), "port"))
            port = number(line.mid(equals + 1));
    }
    return port;
}
