#pragma once

#include <QCommandLineParser>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <chrono>

namespace deck {

/// Reads the values of options and remembers the first error.
class OptionReader
{
public:
    /// \a parser is not owned, outlives this object and has parsed a command line.
    explicit OptionReader(const QCommandLineParser &parser);

    int integer(const QCommandLineOption &option, int least, int greatest);
    /// "COLUMN,ROW".
    QPoint point(const QCommandLineOption &option);
    /// A time above 0 and at most one day.
    std::chrono::milliseconds seconds(const QCommandLineOption &option);
    /// The files that the option names; one that cannot be read is an error.
    QStringList readableFiles(const QCommandLineOption &option);
    /// An option given with an empty text is an error.
    QString text(const QCommandLineOption &option);
    /// Reports another error.
    void complain(const QString &complaint);

    /// The first error; empty when there is none.
    [[nodiscard]] const QString &error() const { return m_error; }

private:
    void complain(const QCommandLineOption &option, const QString &complaint);

    const QCommandLineParser &m_parser;
    QString m_error;
};

} // namespace deck
