#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace deck {

/// Standard output, which may be a terminal. The terminal's modes that were changed are put back at
/// the end; the cursor is hidden only within a single write.
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
    /// Writes UTF-8. False once nobody reads the output any more.
    bool write(const QByteArray &text);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace deck
