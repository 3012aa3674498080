#pragma once

#include <QCommandLineParser>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <chrono>

namespace deck {

/// Reads the values of options and keeps the first complaint about one.
class OptionReader
{
public:
    /// \a parser is not owned, outlives this object and has parsed a command line.
    explicit OptionReader(const QCommandLineParser &parser);

    int integer(const QCommandLineOption &option, int least, int greatest);
    /// "COLUMN,ROW".
    QPoint point(const QCommandLineOption &option);
    /// A time above 0, a day at most.
    std::chrono::milliseconds seconds(const QCommandLineOption &option);
    /// The files that the option names; there is a complaint about one that cannot be read.
    QStringList readableFiles(const QCommandLineOption &option);
    /// An empty text is complained of where it was given.
    QString text(const QCommandLineOption &option);
    /// A complaint about something else.
    void complain(const QString &complaint);

    /// The first complaint; empty for none.
    [[nodiscard]] const QString &error() const { return m_error; }

private:
    void complain(const QCommandLineOption &option, const QString &complaint);

    const QCommandLineParser &m_parser;
    QString m_error;
};

} // namespace deck
