#pragma once

#include <QString>
#include <QVector>

class QFormLayout;
class QLabel;
class QWidget;

namespace deck {

/// The rows of a form, of which only those that apply are shown. The widgets belong to the form's
/// widget.
class FormRows
{
public:
    /// Arranges \a form, which outlives this object.
    explicit FormRows(QFormLayout *form);

    /// Without a label the field is as wide as the form.
    void add(const QString &label, QWidget *field);
    /// Takes effect with layOut().
    void show(const QWidget *field, bool shown);
    void layOut();
    [[nodiscard]] bool isEmpty() const;

private:
    struct Row
    {
        QLabel *label; // or null
        QWidget *field;
        bool shown;
    };

    void alignLabels();

    QFormLayout *m_layout;
    QVector<Row> m_rows;
};

} // namespace deck
