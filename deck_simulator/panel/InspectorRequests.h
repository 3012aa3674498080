#pragma once

#include "deck_simulator/deck/EntrySettings.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace deck {

/// What a settings panel asks the plugin's data server for, while it shows a key of \a action: bare
/// names. Empty where the server knows nothing of that action.
QStringList inspectorRequests(const QString &action);

/// The server's replies so far, by request.
class InspectorReadings
{
public:
    /// Takes one reply of the server. False for one that is none.
    bool take(const QByteArray &reply);
    void clear();

    /// What \a action reads now, in lines; empty before the replies.
    [[nodiscard]] QString previewText(const QString &action, const EntrySettings &settings) const;
    /// The tree of all sensors; empty when it was not asked for.
    [[nodiscard]] const QJsonObject &sensors() const { return m_sensors; }

private:
    [[nodiscard]] QString driveLines() const;
    [[nodiscard]] QString deviceLines() const;

    QJsonObject m_infos; // by request
    QJsonObject m_sensors;
};

} // namespace deck
