#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

/// One column of a table.
struct TableColumn
{
    QString header;
    bool rightAligned = false;
    /// The column may be narrowed down to this width; 0: it keeps its natural width.
    int minimum = 0;
    /// Texts that are too wide are cut in the middle.
    bool keepsEnd = false;
};

/// The number of terminal columns that \a text takes: Chinese, Japanese and Korean characters and
/// emoji take two, combining marks none.
int displayWidth(const QString &text);

/// \a text truncated or padded to exactly \a width terminal columns; a truncated text ends with
/// "…".
QString fitted(const QString &text, int width, bool rightAligned = false);

/// The same, cut in the middle: beginning and end stay.
QString fittedInTheMiddle(const QString &text, int width);

/// The table as lines, the headers first, none of them wider than \a width. Columns are narrowed as
/// far as they allow and then left out from the right; the first one stays.
QStringList tableLines(QVector<TableColumn> columns, const QVector<QStringList> &rows, int width);

/// At most \a most of these lines: the first, rows from the second on, "N more" for the rows that
/// do not fit, and the last; where there is room for fewer than four, the first ones.
QStringList cutRows(const QStringList &lines, int most);

} // namespace deck
