#pragma once

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;

namespace deck {

/// A number that may be left out. It is taken when the user leaves the field or presses Enter, as
/// a number that is half typed is none.
class NumberField : public QWidget
{
    Q_OBJECT

public:
    explicit NumberField(QWidget *parent = nullptr);

    [[nodiscard]] const std::optional<double> &number() const { return m_number; }
    /// A number that is being typed stays unless \a number is another one than before.
    void setNumber(const std::optional<double> &number);
    /// What holds without a number, in words.
    void setUsual(const QString &text);
    void setUnit(const QString &unit);
    [[nodiscard]] QLineEdit *textField() const { return m_text; }

Q_SIGNALS:
    void edited();

private:
    void take();
    void showNumber();

    QLineEdit *m_text;
    QLabel *m_unit;
    std::optional<double> m_number;
};

} // namespace deck
