#pragma once

#include "deck_simulator/deck/EntrySettings.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace deck {

/// The requests (bare names) that a settings panel sends to the plugin's data server while it shows
/// a key of \a action. Empty if the server has nothing for that action.
QStringList inspectorRequests(const QString &action);

/// These, and what tells why their readings may be missing.
QStringList inspectorQuestions(const QString &action);

/// The server's replies so far, by request.
class InspectorReadings
{
public:
    /// Stores one reply of the server. False if it is not a reply.
    bool take(const QByteArray &reply);
    void clear();

    /// The current reading of \a action, in lines, or that the machine has none;
    /// empty before the replies.
    [[nodiscard]] QString previewText(const QString &action, const EntrySettings &settings) const;
    /// The tree of all sensors; empty when it was not requested.
    [[nodiscard]] const QJsonObject &sensors() const { return m_sensors; }

private:
    [[nodiscard]] QString text(const QString &request) const;
    [[nodiscard]] QString driveLines() const;
    [[nodiscard]] QString deviceLines() const;

    QJsonObject m_infos; // by request
    QJsonObject m_sensors;
};

} // namespace deck
