#include "tests/support/HostPage.h"

#include <QFile>
#include <QRegularExpression>

namespace {

const QString fence = QStringLiteral("```");

QStringList cellsOf(const QString &row)
{
    // A vertical bar within a cell is written as \|.
    static const QRegularExpression bar(QStringLiteral(R"((?<!\\)\|)"));
    QStringList cells = row.trimmed().split(bar);
    cells = cells.mid(1, cells.size() - 2);
    for (QString &cell : cells)
        cell = cell.trimmed().replace(QLatin1String("\\|"), QLatin1String("|"));
    return cells;
}

} // namespace

HostPage HostPage::read(const QString &fileName)
{
    HostPage page;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return page;
    page.m_text = QString::fromUtf8(file.readAll());
    const QStringList lines = page.m_text.split(QLatin1Char('\n'));
    QString column;
    bool isInExample = false;
    for (int index = 0; index < lines.size(); ++index) {
        const QString &line = lines.at(index);
        if (line.startsWith(fence)) {
            isInExample = !isInExample;
            const QStringList words = line.mid(fence.size()).split(QLatin1Char(' '));
            if (isInExample)
                page.m_examples.append({words.value(1), words.value(2), QString(), index + 1});
        } else if (isInExample) {
            page.m_examples.last().text += line + QLatin1Char('\n');
        } else {
            page.takeLine(line, column);
        }
    }
    return page;
}

/// \a column is the first heading of the table that the lines before this one belong to.
void HostPage::takeLine(const QString &line, QString &column)
{
    static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"));
    const QRegularExpressionMatch match = heading.match(line);
    if (match.hasMatch())
        m_headings.append(match.captured(1));
    if (!line.startsWith(QLatin1Char('|'))) {
        column.clear();
        return;
    }
    const QStringList cells = cellsOf(line);
    if (column.isEmpty())
        column = cells.value(0);
    else if (!line.startsWith(QLatin1String("|--")))
        m_rows.append({column, cells});
}

QVector<QStringList> HostPage::rows(const QString &column) const
{
    QVector<QStringList> found;
    for (const Row &row : m_rows) {
        if (row.column == column)
            found.append(row.cells);
    }
    return found;
}

QStringList HostPage::code(const QString &cell)
{
    static const QRegularExpression quoted(QStringLiteral("`([^`]*)`"));
    QStringList texts;
    auto match = quoted.globalMatch(cell);
    while (match.hasNext())
        texts.append(match.next().captured(1));
    return texts;
}
