#pragma once

#include <QColor>
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace deck {

/// A colour as text, with a button that shows it and opens a picker. Any text is accepted, so that
/// the plugin can be tested with invalid colours.
class ColorField : public QWidget
{
    Q_OBJECT

public:
    explicit ColorField(QWidget *parent = nullptr);

    [[nodiscard]] QString color() const;
    void setColor(const QString &color);
    /// Lets the text be empty: then \a color is shown, and \a words in place of the text.
    void setUsual(const QString &color, const QString &words);
    [[nodiscard]] QLineEdit *textField() const { return m_text; }
    [[nodiscard]] QToolButton *button() const { return m_button; }

Q_SIGNALS:
    /// The user has chosen another colour.
    void colorEdited(const QString &color);

private:
    void showColor();
    void openPicker();
    void edit(const QString &color);

    [[nodiscard]] QColor shownColor() const;

    QToolButton *m_button;
    QLineEdit *m_text;
    QString m_usual;
};

} // namespace deck
