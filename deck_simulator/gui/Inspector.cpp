#include "deck_simulator/gui/Inspector.h"

#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "deck_simulator/panel/MissingReading.h"
#include "deck_simulator/panel/PictureText.h"

namespace deck {

Inspector::Inspector(DeckModel *model, DeckRunner *runner, SettingsPanel *panel,
                     quint16 dataServerPort, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_runner(runner)
    , m_panel(panel)
    , m_client(dataServerPort)
{
    connect(m_panel, &SettingsPanel::edited, m_model, &DeckModel::changeSettings);
    connect(m_model, &DeckModel::layoutChanged, this, [this] {
        forgetMissing();
        showSelected();
    });
    connect(m_model, &DeckModel::settingsChanged, this, &Inspector::showSettings);
    connect(m_model, &DeckModel::settingsAdopted, this, &Inspector::showSettings);
    connect(m_runner, &DeckRunner::stateChanged, this, &Inspector::ask);
    connect(m_runner, &DeckRunner::settingsReplied, this,
            [this](const QString &context, const QJsonObject &reply) {
                m_replies.insert(context, reply);
                if (context == m_panel->context())
                    showLists();
            });
    connect(m_runner, &DeckRunner::stateChanged, this, [this] { showPicture(m_panel->context()); });
    connect(m_runner, &DeckRunner::keyChanged, this, &Inspector::showPicture);
    connect(m_runner, &DeckRunner::keyChanged, this, &Inspector::showMissingFan);
    connect(&m_client, &InspectorClient::replied, this, &Inspector::takeReply);
    showSelected();
}

void Inspector::select(const DeckPlace &place)
{
    m_place = place;
    showSelected();
}

void Inspector::showSelected()
{
    const DeckEntry *entry = m_model->at(m_place);
    const bool another = (entry == nullptr ? QString() : entry->context) != m_panel->context();
    m_panel->setEntry(entry);
    m_runner->inspect(m_panel->context());
    if (another)
        showLists();
    showPicture(m_panel->context());
    ask();
}

void Inspector::forgetMissing()
{
    const QStringList contexts = m_replies.keys();
    for (const QString &context : contexts) {
        if (m_model->find(context) == nullptr)
            m_replies.remove(context);
    }
}

void Inspector::showLists()
{
    if (!m_panel->context().isEmpty())
        m_panel->form()->setLists(listsFrom(m_replies.value(m_panel->context())));
}

void Inspector::showSettings(const QString &context)
{
    if (context != m_panel->context())
        return;
    const EntrySettings &settings = m_model->find(context)->settings;
    if (settings != m_panel->form()->settings()) // those that are being edited are there
        m_panel->form()->setSettings(settings);
}

void Inspector::ask()
{
    const DeckEntry *entry = m_runner->isLinked() ? m_model->at(m_place) : nullptr;
    const QString action = entry == nullptr ? QString() : entry->action;
    if (action == m_askedFor)
        return;
    m_askedFor = action;
    m_readings.clear();
    m_panel->setPreview({});
    m_client.setRequests(inspectorQuestions(action));
}

void Inspector::showPicture(const QString &context)
{
    if (context != m_panel->context())
        return;
    const DeckKey *key = m_runner->key(context);
    m_panel->form()->setPictureText(
        key == nullptr ? QString()
                       : pictureText(key->picture().size(), key->showsGauge(), m_place.dial));
}

void Inspector::showMissingFan(const QString &context)
{
    const DeckKey *key = m_runner->key(context);
    // The server answers for every other kind.
    if (key == nullptr || context != m_panel->context() ||
        !inspectorRequests(key->action()).isEmpty())
        return;
    m_panel->setPreview(missingFanText(key->action(), key->title()));
}

void Inspector::takeReply(const QByteArray &reply)
{
    const DeckEntry *entry = m_model->at(m_place);
    if (entry == nullptr || !m_readings.take(reply))
        return;
    m_panel->setPreview(m_readings.previewText(entry->action, entry->settings));
    if (!m_readings.sensors().isEmpty())
        m_panel->form()->setSensors(sensorsFrom(m_readings.sensors()));
}

} // namespace deck
