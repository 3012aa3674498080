#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// docs/hosts.md as tests see it.
class HostPage
{
public:
    /// A fenced block: the second word after the opening fence says how it is played.
    struct Example
    {
        QString kind; ///< Such as "host-to-plugin"; empty when the fence has no second word.
        QString option;
        QString text; ///< Without the fences; each line ends in a line feed.
        int line = 0; ///< Of the opening fence, from 1.
    };

    /// A page without anything when the file cannot be read.
    static HostPage read(const QString &fileName);

    const QString &text() const { return m_text; }
    const QVector<Example> &examples() const { return m_examples; }
    const QStringList &headings() const { return m_headings; }

    /// The cells of all tables whose first column has the heading \a column, without that row.
    QVector<QStringList> rows(const QString &column) const;

    /// The texts between backticks, such as `this`.
    static QStringList code(const QString &cell);

private:
    struct Row
    {
        QString column;
        QStringList cells;
    };

    void takeLine(const QString &line, QString &column);

    QString m_text;
    QVector<Example> m_examples;
    QStringList m_headings;
    QVector<Row> m_rows;
};
