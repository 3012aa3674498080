#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace deck {

/// Standard output, which may be a terminal. Changed terminal modes are restored at the end; the
/// cursor is hidden only within a single write.
class Terminal
{
public:
    Terminal();
    ~Terminal();
    Q_DISABLE_COPY(Terminal)

    /// True when the output is a terminal that understands cursor movements.
    [[nodiscard]] bool isInteractive() const;
    /// Columns and rows; an unknown size is 80 columns and 24 rows.
    [[nodiscard]] QSize size() const;
    /// Writes UTF-8. False when nobody reads the output any more.
    bool write(const QByteArray &text);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace deck
