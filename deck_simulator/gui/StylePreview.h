#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

namespace deck {

/// What the previews of all styles have in common.
struct PreviewLook
{
    QColor text = Qt::white;
    QColor gauge;
    QColor ground; ///< Invalid: none.
    bool wide = false;
};

bool operator==(const PreviewLook &left, const PreviewLook &right);

/// A small picture of a key in the style \a style ("text", "bar", ...), \a side device-independent
/// pixels wide and high. It shows what the style is like, not what the plugin paints.
QPixmap stylePreview(const QString &style, const PreviewLook &look, int side, qreal ratio);

} // namespace deck
