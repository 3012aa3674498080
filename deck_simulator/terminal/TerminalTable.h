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
};

/// The number of terminal columns that \a text takes: Chinese, Japanese and Korean characters and
/// emoji take two, combining marks none.
int displayWidth(const QString &text);

/// \a text truncated or padded to exactly \a width terminal columns; a truncated text ends with
/// "…".
QString fitted(const QString &text, int width, bool rightAligned = false);

/// The table as lines, the headers first, none of them wider than \a width. Columns are narrowed as
/// far as they allow and then left out from the right; the first one stays.
QStringList tableLines(QVector<TableColumn> columns, const QVector<QStringList> &rows, int width);

} // namespace deck
