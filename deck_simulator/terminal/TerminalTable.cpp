#include "deck_simulator/terminal/TerminalTable.h"

#include <QChar>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace deck {

namespace {

constexpr int columnGap = 2;

struct CodeRange
{
    uint first;
    uint last;
};

// The blocks whose characters are "W" or "F" in the Unicode table EastAsianWidth.txt.
const CodeRange wideRanges[] = {
    {0x1100, 0x115f},   {0x231a, 0x231b},   {0x23e9, 0x23ec},   {0x25fd, 0x25fe},
    {0x2614, 0x2615},   {0x2648, 0x2653},   {0x26a1, 0x26a1},   {0x26bd, 0x26be},
    {0x2705, 0x2705},   {0x270a, 0x270b},   {0x274c, 0x274c},   {0x2753, 0x2755},
    {0x2795, 0x2797},   {0x2b1b, 0x2b1c},   {0x2b50, 0x2b50},   {0x2e80, 0x303e},
    {0x3041, 0x4dbf},   {0x4e00, 0xa4cf},   {0xa960, 0xa97f},   {0xac00, 0xd7a3},
    {0xf900, 0xfaff},   {0xfe10, 0xfe19},   {0xfe30, 0xfe6f},   {0xff00, 0xff60},
    {0xffe0, 0xffe6},   {0x16fe0, 0x18aff}, {0x1b000, 0x1b2ff}, {0x1f300, 0x1f64f},
    {0x1f680, 0x1f6ff}, {0x1f7e0, 0x1f7eb}, {0x1f900, 0x1faff}, {0x20000, 0x3fffd},
};

int codePointWidth(uint code)
{
    const QChar::Category category = QChar::category(code);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing)
        return 0;
    const auto *const range =
        std::find_if(std::begin(wideRanges), std::end(wideRanges),
                     [code](const CodeRange &candidate) { return code <= candidate.last; });
    return range != std::end(wideRanges) && code >= range->first ? 2 : 1;
}

QString leadingPart(const QString &text, int width)
{
    QString part;
    int used = 0;
    for (const char32_t code : text.toUcs4()) {
        used += codePointWidth(code);
        if (used > width)
            break;
        part += QString::fromUcs4(&code, 1);
    }
    return part;
}

QString trailingPart(const QString &text, int width)
{
    const QVector<uint> codes = text.toUcs4();
    QString part;
    int used = 0;
    for (auto code = codes.rbegin(); code != codes.rend(); ++code) {
        const char32_t character = *code;
        used += codePointWidth(character);
        if (used > width)
            break;
        part.prepend(QString::fromUcs4(&character, 1));
    }
    return part;
}

QVector<int> naturalWidths(const QVector<TableColumn> &columns, const QVector<QStringList> &rows)
{
    QVector<int> widths;
    for (int column = 0; column < columns.size(); ++column) {
        int width = displayWidth(columns.at(column).header);
        for (const QStringList &row : rows)
            width = qMax(width, displayWidth(row.value(column)));
        widths.append(width);
    }
    return widths;
}

int totalWidth(const QVector<int> &widths)
{
    return std::accumulate(widths.begin(), widths.end(),
                           columnGap * (static_cast<int>(widths.size()) - 1));
}

// Narrows the widest of the columns that may be narrowed by one. False when there is none left.
bool narrowOne(const QVector<TableColumn> &columns, QVector<int> &widths)
{
    int widest = -1;
    for (int column = 0; column < widths.size(); ++column) {
        const int minimum = columns.at(column).minimum;
        if (minimum > 0 && widths.at(column) > minimum &&
            (widest < 0 || widths.at(column) > widths.at(widest)))
            widest = column;
    }
    if (widest < 0)
        return false;
    --widths[widest];
    return true;
}

QString cell(const TableColumn &column, const QString &text, int width)
{
    return column.keepsEnd ? fittedInTheMiddle(text, width)
                           : fitted(text, width, column.rightAligned);
}

QString tableLine(const QVector<TableColumn> &columns, const QVector<int> &widths,
                  const QStringList &cells)
{
    QStringList parts;
    for (int column = 0; column < widths.size(); ++column)
        parts.append(cell(columns.at(column), cells.value(column), widths.at(column)));
    QString line = parts.join(QString(columnGap, QLatin1Char(' ')));
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

} // namespace

int displayWidth(const QString &text)
{
    int width = 0;
    for (const uint code : text.toUcs4())
        width += codePointWidth(code);
    return width;
}

QString fitted(const QString &text, int width, bool rightAligned)
{
    QString result = text;
    if (displayWidth(text) > width)
        result = width > 0 ? leadingPart(text, width - 1) + QStringLiteral("…") : QString();
    const QString padding(qMax(0, width - displayWidth(result)), QLatin1Char(' '));
    return rightAligned ? padding + result : result + padding;
}

QString fittedInTheMiddle(const QString &text, int width)
{
    if (displayWidth(text) <= width || width < 3)
        return fitted(text, width);
    const int beginning = (width - 1) / 2;
    return fitted(leadingPart(text, beginning) + QStringLiteral("…") +
                      trailingPart(text, width - 1 - beginning),
                  width);
}

QStringList cutRows(const QStringList &lines, int most)
{
    if (lines.size() <= most || lines.isEmpty())
        return lines;
    if (most < 4) // header, row, count and last line
        return lines.mid(0, qMax(0, most));
    const int rows = most - 3;
    const auto hidden = lines.size() - 2 - rows;
    return lines.mid(0, 1 + rows) << QStringLiteral("%1 more").arg(hidden) << lines.constLast();
}

QStringList tableLines(QVector<TableColumn> columns, const QVector<QStringList> &rows, int width)
{
    QVector<int> widths = naturalWidths(columns, rows);
    while (totalWidth(widths) > width && widths.size() > 1) {
        if (!narrowOne(columns, widths))
            widths.removeLast();
    }
    if (widths.size() == 1)
        widths[0] = qMin(widths.at(0), width);
    columns.resize(widths.size());

    QStringList headers;
    for (const TableColumn &column : columns)
        headers.append(column.header);
    QStringList lines{tableLine(columns, widths, headers)};
    for (const QStringList &row : rows)
        lines.append(tableLine(columns, widths, row));
    return lines;
}

} // namespace deck
