#pragma once

#include "deck_simulator/host/DeckRunner.h"
#include "deck_simulator/panel/InspectorClient.h"
#include "deck_simulator/panel/InspectorRequests.h"

#include <QHash>
#include <QJsonObject>
#include <QObject>

namespace deck {

class SettingsPanel;

/// What a host does around a settings panel: shows it the selected key, sends its changes through
/// the model, gives it the plugin's lists, and what the plugin's data server tells.
class Inspector : public QObject
{
    Q_OBJECT

public:
    /// None of them is owned; they outlive this object. \a dataServerPort is where the plugin's
    /// data server is.
    Inspector(DeckModel *model, DeckRunner *runner, SettingsPanel *panel, quint16 dataServerPort,
              QObject *parent = nullptr);

    /// The key that is selected from now on.
    void select(const DeckPlace &place);

private:
    void showSelected();
    void forgetMissing();
    void showLists();
    void showSettings(const QString &context);
    void ask();
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
