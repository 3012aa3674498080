#include "sensors/ServeConfig.h"

#include <QString>
#include <QVariant>

namespace {

QByteArray withoutMarks(const QByteArray &value)
{
    const bool marked = value.size() > 1 && value.startsWith('"') && value.endsWith('"');
    return marked ? value.mid(1, value.size() - 2) : value;
}

int number(const QByteArray &value)
{
    return QVariant(QString::fromLatin1(withoutMarks(value.trimmed()))).toInt();
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
            inGroup = line.mid(1, line.indexOf(']') - 1).trimmed() == "HWInfoServe";
        else if (inGroup && equals > 0 && line.left(equals).trimmed() == "port")
            port = number(line.mid(equals + 1));
    }
    return port;
}
