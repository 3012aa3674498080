#include "deck_simulator/host/DeckRunner.h"

#include "deck_simulator/deck/DeckProfile.h"

namespace deck {

namespace {

constexpr int meterPeriod = 500; // milliseconds

// Font sizes are whole pixels.
bool isFilled(const QSize &picture, const QSize &screen)
{
    return qAbs(picture.width() - screen.width()) <= screen.width() / 20;
}

} // namespace

DeckRunner::DeckRunner(const SessionSettings &settings, DeckModel *model, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_model(model)
{
    connect(m_model, &DeckModel::layoutChanged, this, &DeckRunner::onLayoutChanged);
    connect(m_model, &DeckModel::settingsChanged, this, &DeckRunner::onSettingsChanged);
    connect(&m_meterTimer, &QTimer::timeout, this, &DeckRunner::measure);
}

void DeckRunner::start()
{
    if (m_session != nullptr)
        return;
    Q_EMIT aboutToStart();
    SessionSettings settings = m_settings;
    settings.language = m_launch.language;
    settings.quoteStripped = m_launch.quoteStripped;
    settings.recording = m_launch.recording;
    m_session = new DeckSession(settings, deckOf(*m_model), this);
    connect(m_session, &DeckSession::keysAppeared, this, &DeckRunner::onRegistered);
    connect(m_session, &DeckSession::ended, this, &DeckRunner::onSessionEnded);
    connect(m_session, &DeckSession::notice, this, &DeckRunner::notice);
    connect(m_session, &DeckSession::stalledChanged, this, &DeckRunner::stalledChanged);
    connect(m_session, &DeckSession::stalledChanged, this, &DeckRunner::stateChanged);
    connect(m_session, &DeckSession::keyChanged, this, &DeckRunner::fit);
    connect(m_session, &DeckSession::keyChanged, this, &DeckRunner::keyChanged);
    connect(&m_session->host(), &DeckHost::settingsReplied, this, &DeckRunner::onSettingsReplied);
    m_meter = TrafficMeter();
    m_meterTimer.start(meterPeriod);
    m_session->start();
    if (m_session == nullptr)
        return; // it could not even begin
    m_workFolder = m_session->workFolder();
    Q_EMIT started(m_workFolder);
    Q_EMIT stateChanged();
}

void DeckRunner::stop()
{
    m_startAgain = false;
    if (m_session == nullptr)
        return;
    m_session->end();
    Q_EMIT stateChanged();
}

void DeckRunner::restart()
{
    if (m_session == nullptr) {
        start();
        return;
    }
    stop();
    m_startAgain = true;
    if (m_session == nullptr)
        start();
}

void DeckRunner::letHostDie()
{
    if (m_session == nullptr)
        return;
    m_session->letHostDie();
    Q_EMIT stateChanged();
}

bool DeckRunner::changeServicePort()
{
    if (m_session == nullptr || !m_session->moveService())
        return false;
    Q_EMIT notice(QStringLiteral("The hardware-information service is on port %1 now.")
                      .arg(m_session->service().port()));
    return true;
}

bool DeckRunner::isLinked() const
{
    return m_session != nullptr && m_session->host().isRegistered();
}

QString DeckRunner::stateText() const
{
    return m_session != nullptr ? m_session->stateText() : QStringLiteral("stopped");
}

qint64 DeckRunner::pluginPid() const
{
    return m_session != nullptr ? m_session->pluginPid() : 0;
}

const DeckKey *DeckRunner::key(const QString &context) const
{
    return m_session != nullptr ? m_session->host().key(context) : nullptr;
}

bool DeckRunner::sendKeyEvent(const QString &event, const QString &context,
                              const QJsonObject &extra)
{
    return m_session != nullptr && m_session->host().sendKeyEvent(event, context, extra);
}

void DeckRunner::press(const QString &context, bool down)
{
    sendKeyEvent(down ? QStringLiteral("keyDown") : QStringLiteral("keyUp"), context);
}

void DeckRunner::rotate(const QString &context, int ticks, bool pressed)
{
    sendKeyEvent(QStringLiteral("dialRotate"), context,
                 {{QStringLiteral("ticks"), ticks}, {QStringLiteral("pressed"), pressed}});
}

void DeckRunner::pressDial(const QString &context, bool down)
{
    sendKeyEvent(QStringLiteral("dialPress"), context, {{QStringLiteral("pressed"), down}});
}

void DeckRunner::inspect(const QString &context)
{
    if (context == m_inspected)
        return;
    sendKeyEvent(QStringLiteral("propertyInspectorDidDisappear"), m_inspected);
    m_inspected = context;
    sendKeyEvent(QStringLiteral("propertyInspectorDidAppear"), m_inspected);
}

QJsonObject DeckRunner::message(const DeckEntry &entry) const
{
    const QSize screen = screenPixels(entry.place.dial);
    const DeckKey *shown = key(entry.context);
    if (shown == nullptr || shown->pictureSize().isEmpty())
        return settingsMessage(entry.settings, screen);
    // The plugin relates the font size to the width that it is sent and to the last picture that it
    // drew: sending the size of that picture leaves the font size unchanged. Told the key's width
    // twice before the next picture, it would enlarge the letters twice.
    const bool fills =
        entry.settings.fillsKey && !shown->showsGauge() && !m_unfitted.contains(entry.context);
    return settingsMessage(entry.settings, fills ? screen : shown->pictureSize());
}

void DeckRunner::onRegistered()
{
    m_awaitedReplies.clear();
    m_unfitted.clear();
    for (const DeckKey &key : m_session->host().keys()) {
        m_awaitedReplies.insert(key.context(), 1);
        m_unfitted.insert(key.context(), 0);
    }
    sendKeyEvent(QStringLiteral("propertyInspectorDidAppear"), m_inspected);
    Q_EMIT linked();
    Q_EMIT stateChanged();
}

void DeckRunner::onLayoutChanged()
{
    if (m_session == nullptr)
        return;
    takeOffMissing();
    putOnNew();
}

void DeckRunner::takeOffMissing()
{
    QStringList missing;
    for (const DeckKey &key : m_session->host().keys()) {
        const DeckEntry *entry = m_model->find(key.context());
        const bool stays =
            entry != nullptr && m_model->contains(entry->place) && entry->place == key.place();
        if (!stays)
            missing.append(key.context());
    }
    for (const QString &context : qAsConst(missing)) {
        m_session->host().removeKey(context);
        m_awaitedReplies.remove(context);
        m_unfitted.remove(context);
    }
}

void DeckRunner::putOnNew()
{
    for (const DeckEntry &entry : m_model->entries()) {
        if (!m_model->contains(entry.place) || key(entry.context) != nullptr)
            continue;
        m_session->host().putKey(keyOf(entry));
        m_awaitedReplies.insert(entry.context, 1);
        m_unfitted.insert(entry.context, 0);
    }
}

void DeckRunner::onSettingsChanged(const QString &context)
{
    const DeckEntry *entry = m_model->find(context);
    if (m_session == nullptr || entry == nullptr)
        return;
    send(*entry);
    m_unfitted.insert(context, key(context) == nullptr ? 0 : key(context)->pictures());
}

void DeckRunner::send(const DeckEntry &entry)
{
    if (m_session->host().changeSettings(entry.context, message(entry)))
        ++m_awaitedReplies[entry.context];
}

// The first picture with the settings shows how wide the text is; then the letters can be chosen.
void DeckRunner::fit(const QString &context)
{
    const auto unfitted = m_unfitted.find(context);
    const DeckKey *shown = key(context);
    const DeckEntry *entry = m_model->find(context);
    if (unfitted == m_unfitted.end() || shown == nullptr || entry == nullptr ||
        m_awaitedReplies.value(context) > 0 || shown->picture().isNull() ||
        shown->pictures() <= *unfitted)
        return;
    m_unfitted.erase(unfitted);
    if (entry->settings.fillsKey && !shown->showsGauge() &&
        !isFilled(shown->picture().size(), screenPixels(entry->place.dial)))
        send(*entry);
}

void DeckRunner::onSettingsReplied(const QString &context)
{
    const DeckKey *replied = key(context);
    if (replied == nullptr)
        return;
    const QJsonObject reply = replied->settings();
    const DeckEntry *entry = m_model->find(context);
    int &awaited = m_awaitedReplies[context];
    awaited = qMax(0, awaited - 1);
    if (m_unfitted.contains(context))
        m_unfitted.insert(context, replied->pictures());
    // A reply to settings that have changed since would undo the change.
    if (awaited == 0 && entry != nullptr) {
        EntrySettings settings = settingsFrom(reply, entry->settings);
        // The size in the reply is only used for a key with "fill the key".
        if (!settings.fillsKey)
            settings.fontSize = entry->settings.fontSize;
        m_model->adoptSettings(context, settings);
    }
    Q_EMIT settingsReplied(context, reply);
}

void DeckRunner::onSessionEnded()
{
    DeckSession *session = m_session;
    m_session = nullptr;
    m_meterTimer.stop();
    m_meter = TrafficMeter();
    m_awaitedReplies.clear();
    m_unfitted.clear();
    m_lastExit = session->exitText();
    if (!session->failure().isEmpty())
        Q_EMIT notice(session->failure());
    else if (!m_lastExit.isEmpty())
        Q_EMIT notice(QStringLiteral("The plugin has ended with %1.").arg(m_lastExit));
    const QString failure = session->failure();
    session->deleteLater();
    Q_EMIT stateChanged();
    if (!m_startAgain) {
        Q_EMIT ended(failure);
        return;
    }
    m_startAgain = false;
    // The old session's ports and folders are released first.
    connect(session, &QObject::destroyed, this, &DeckRunner::start);
}

void DeckRunner::measure()
{
    if (m_session == nullptr)
        return;
    const DeckHost &host = m_session->host();
    m_meter.add(host.now(), host.counters().frames, host.counters().bytes);
    Q_EMIT stateChanged();
}

} // namespace deck
