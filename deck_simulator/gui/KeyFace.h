#pragma once

#include <QIcon>
#include <QImage>
#include <QString>

namespace deck {

/// What one place of the deck shows.
struct KeyFace
{
    QString caption;       ///< The action's; empty: nothing is on the key.
    QIcon icon;            ///< The action's, for a key without a picture.
    QString title;         ///< As the plugin sent it.
    QImage picture;        ///< Likewise; null before the first.
    bool isGauge = false;  ///< The picture is as large as the key, not as its text.
    bool isDimmed = false; ///< What it shows may be out of date.
};

} // namespace deck
