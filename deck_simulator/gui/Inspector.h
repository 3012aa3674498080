#pragma once

#include "deck_simulator/host/DeckRunner.h"
#include "deck_simulator/panel/InspectorClient.h"
#include "deck_simulator/panel/InspectorRequests.h"

#include <QHash>
#include <QJsonObject>
#include <QObject>

namespace deck {

class SettingsPanel;

/// The host's part around a settings panel: it shows the selected key in the panel, passes its
/// changes to the model, and supplies the plugin's lists and the readings of the plugin's data
/// server.
class Inspector : public QObject
{
    Q_OBJECT

public:
    /// None of them is owned; they outlive this object. \a dataServerPort is the port of the
    /// plugin's data server.
    Inspector(DeckModel *model, DeckRunner *runner, SettingsPanel *panel, quint16 dataServerPort,
              QObject *parent = nullptr);

    /// Selects another key.
    void select(const DeckPlace &place);

private:
    void showSelected();
    void forgetMissing();
    void showLists();
    void showSettings(const QString &context);
    void ask();
    void showPicture(const QString &context);
    void showMissingFan(const QString &context);
    void takeReply(const QByteArray &reply);

    DeckModel *m_model;
    DeckRunner *m_runner;
    SettingsPanel *m_panel;
    InspectorClient m_client;
    InspectorReadings m_readings;
    QHash<QString, QJsonObject> m_replies; // by context
    DeckPlace m_place;
    QString m_askedFor;
};

} // namespace deck
