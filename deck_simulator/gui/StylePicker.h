#pragma once

#include "deck_simulator/gui/StylePreview.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

class QToolButton;

namespace deck {

/// The styles in which a key can be shown, each with a picture.
class StylePicker : public QWidget
{
    Q_OBJECT

public:
    explicit StylePicker(QWidget *parent = nullptr);

    /// Of "text", "bar", "ring", "graph" and "pair"; the others are hidden.
    void setStyles(const QStringList &styles);
    /// Selects a style without emitting a signal.
    void setStyle(const QString &style);
    void setLook(const PreviewLook &look);
    /// Null for an unknown style.
    [[nodiscard]] QToolButton *button(const QString &style) const;

Q_SIGNALS:
    /// The user has chosen a style.
    void chosen(const QString &style);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Choice
    {
        QString style;
        QToolButton *button;
    };

    void paintPreviews();

    QVector<Choice> m_choices;
    PreviewLook m_look;
};

} // namespace deck
