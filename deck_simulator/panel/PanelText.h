#pragma once

#include <QCoreApplication>
#include <QString>

namespace deck {

/// A text of the settings panel in the language that is shown, for parts that are no widgets.
inline QString panelText(const char *english)
{
    return QCoreApplication::translate("deck::SettingsPanel", english);
}

} // namespace deck
