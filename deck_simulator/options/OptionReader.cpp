#include "deck_simulator/options/OptionReader.h"

#include <QFileInfo>

namespace deck {

namespace {

constexpr double longestRun = 24.0 * 60 * 60; // seconds

} // namespace

OptionReader::OptionReader(const QCommandLineParser &parser)
    : m_parser(parser)
{
}

int OptionReader::integer(const QCommandLineOption &option, int least, int greatest)
{
    bool ok = false;
    const int value = m_parser.value(option).toInt(&ok);
    if (!ok || value < least || value > greatest)
        complain(option,
                 QStringLiteral("must be a whole number from %1 to %2").arg(least).arg(greatest));
    return value;
}

QPoint OptionReader::point(const QCommandLineOption &option)
{
    const QStringList parts = m_parser.value(option).split(QLatin1Char(','));
    bool columnOk = false;
    bool rowOk = false;
    const QPoint value(parts.value(0).toInt(&columnOk), parts.value(1).toInt(&rowOk));
    if (parts.size() != 2 || !columnOk || !rowOk)
        complain(option, QStringLiteral("must be two whole numbers with a comma between"));
    return value;
}

std::chrono::milliseconds OptionReader::seconds(const QCommandLineOption &option)
{
    bool ok = false;
    const double value = m_parser.value(option).toDouble(&ok);
    // Written so that "nan" is refused too.
    if (!ok || !(value > 0 && value <= longestRun)) {
        complain(option, QStringLiteral("must be a number of seconds above 0, at most %1")
                             .arg(longestRun, 0, 'f', 0));
        return {};
    }
    return std::chrono::milliseconds(qRound64(value * 1000));
}

QStringList OptionReader::readableFiles(const QCommandLineOption &option)
{
    QStringList files = m_parser.values(option);
    for (const QString &file : qAsConst(files)) {
        const QFileInfo info(file);
        if (!info.isFile() || !info.isReadable())
            complain(option, QStringLiteral("names no readable file: %1").arg(file));
    }
    return files;
}

QString OptionReader::text(const QCommandLineOption &option)
{
    QString value = m_parser.value(option);
    if (value.isEmpty() && m_parser.isSet(option))
        complain(option, QStringLiteral("must not be empty"));
    return value;
}

void OptionReader::complain(const QString &complaint)
{
    if (m_error.isEmpty())
        m_error = complaint;
}

void OptionReader::complain(const QCommandLineOption &option, const QString &complaint)
{
    complain(QStringLiteral("--%1 %2.").arg(option.names().constFirst(), complaint));
}

} // namespace deck
