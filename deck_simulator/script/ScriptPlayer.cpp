#include "deck_simulator/script/ScriptPlayer.h"

#include "deck_simulator/deck/EntrySettings.h"

namespace deck {

namespace {

using Kind = ScriptStep::Kind;

QString placeText(const DeckPlace &place)
{
    return place.dial ? QStringLiteral("dial %1").arg(place.column)
                      : QStringLiteral("key [%1, %2]").arg(place.column).arg(place.row);
}

QJsonObject withChanges(const QJsonObject &settings, const ScriptStep &step)
{
    QJsonObject parameters = settings.value(QLatin1String("titleParameters")).toObject();
    for (auto member = step.object.begin(); member != step.object.end(); ++member)
        parameters.insert(member.key(), member.value());
    QJsonObject changed = settings;
    changed.insert(QStringLiteral("titleParameters"), parameters);
    // As it stands, so that the plugin can be tested with broken ones.
    if (step.display.isNull())
        changed.remove(QStringLiteral("display"));
    else if (!step.display.isUndefined())
        changed.insert(QStringLiteral("display"), step.display);
    return changed;
}

// Whether more is expected than a picture.
bool expectsMore(const ScriptStep &step)
{
    return step.title || step.color.isValid() || !step.pictureSize.isEmpty();
}

QString expectationText(const ScriptStep &step)
{
    QStringList parts;
    if (step.title)
        parts.append(QStringLiteral("\"%1\"").arg(step.title->pattern()));
    if (step.color.isValid())
        parts.append(QStringLiteral("the colour %1").arg(step.color.name()));
    if (!step.pictureSize.isEmpty())
        parts.append(QStringLiteral("%1 x %2 pixels")
                         .arg(step.pictureSize.width())
                         .arg(step.pictureSize.height()));
    return parts.isEmpty() ? QStringLiteral("a picture") : parts.join(QStringLiteral(" and "));
}

bool hasColor(const QImage &picture, const QColor &color)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            if (pixels.pixel(x, y) == color.rgba())
                return true;
        }
    }
    return false;
}

QJsonObject usualSettings()
{
    return settingsMessage({}, {deckKeyPixels, deckKeyPixels});
}

} // namespace

ScriptPlayer::ScriptPlayer(const QVector<ScriptStep> &steps, DeckSession *session, QObject *parent)
    : QObject(parent)
    , m_steps(steps)
    , m_session(session)
{
    m_stepTimer.setSingleShot(true);
    m_stepTimer.setTimerType(Qt::PreciseTimer);
    m_patience.setSingleShot(true);
    connect(&m_stepTimer, &QTimer::timeout, this, &ScriptPlayer::playDue);
    connect(&m_patience, &QTimer::timeout, this, &ScriptPlayer::onPatienceEnd);
    connect(m_session, &DeckSession::keyChanged, this, &ScriptPlayer::checkExpectation);
}

void ScriptPlayer::start()
{
    m_clock.start();
    playDue();
}

void ScriptPlayer::playDue()
{
    while (!m_ended && !m_waiting && !m_holding && m_next < m_steps.size()) {
        const ScriptStep step = m_steps.at(m_next);
        const qint64 rest = step.at.count() - m_clock.elapsed();
        if (rest > 0) {
            m_stepTimer.start(int(rest));
            return;
        }
        const QString failure = play(step);
        if (!failure.isEmpty()) {
            end(QStringLiteral("Line %1 of the script: %2.").arg(step.line).arg(failure));
            return;
        }
        // An expectation continues by itself once it is met.
        if (step.kind == Kind::Expect)
            return;
        ++m_next;
    }
    if (!m_ended && !m_waiting && !m_holding && m_next == m_steps.size())
        end({});
}

// What went wrong, or an empty text.
QString ScriptPlayer::play(const ScriptStep &step)
{
    switch (step.kind) {
    case Kind::Put:
        put(step);
        return {};
    case Kind::Send:
        return m_session->host().sendMessage(step.object) ? QString()
                                                          : QStringLiteral("nobody is there");
    case Kind::ServicePort:
        return m_session->moveService() ? QString() : QStringLiteral("no other port is free");
    case Kind::HostDies:
        // The session's end is the script's as well.
        m_ended = m_next + 1 == m_steps.size();
        m_session->letHostDie();
        if (m_ended)
            Q_EMIT finished({});
        return {};
    case Kind::Snapshot:
        Q_EMIT snapshotWanted(step.file);
        return {};
    case Kind::Machine:
        return m_session->changeRecording(step.file)
                   ? QString()
                   : QStringLiteral("the recording %1 cannot be used").arg(step.file);
    case Kind::Expect:
        beginToWait(step);
        return {};
    default:
        return playOnKey(step);
    }
}

QString ScriptPlayer::playOnKey(const ScriptStep &step)
{
    const DeckKey *key = keyOf(step);
    if (key == nullptr)
        return QStringLiteral("nothing is on %1").arg(placeText(step.place));
    DeckHost &host = m_session->host();
    const QString context = key->context();
    switch (step.kind) {
    case Kind::Remove:
        host.removeKey(context);
        break;
    case Kind::Move:
        move(step, context);
        break;
    case Kind::Settings:
        return change(step, *key);
    case Kind::Press:
        press(step, context);
        break;
    default:
        host.sendKeyEvent(
            QStringLiteral("dialRotate"), context,
            {{QStringLiteral("ticks"), step.ticks}, {QStringLiteral("pressed"), step.pressed}});
        break;
    }
    return {};
}

void ScriptPlayer::put(const ScriptStep &step)
{
    DeckHost &host = m_session->host();
    if (const DeckKey *displaced = keyOf(step))
        host.removeKey(displaced->context());
    DeckKey key(placeText(step.place), step.action, QStringLiteral("script-%1").arg(++m_made),
                withChanges(usualSettings(), step));
    key.setPlace(step.place);
    host.putKey(key);
}

void ScriptPlayer::move(const ScriptStep &step, const QString &context)
{
    DeckHost &host = m_session->host();
    DeckKey key = *host.key(context);
    if (const DeckKey *displaced = host.keyAt(step.to))
        host.removeKey(displaced->context());
    host.removeKey(context);
    key.setPlace(step.to);
    host.putKey(key);
}

QString ScriptPlayer::change(const ScriptStep &step, const DeckKey &key)
{
    // The whole set: what the plugin's reply left out is as it is on a new key.
    QJsonObject settings = key.settings();
    EntrySettings known = settingsFrom(settings, {});
    const QSize size =
        key.pictureSize().isEmpty() ? QSize(deckKeyPixels, deckKeyPixels) : key.pictureSize();
    const QJsonValue display = settings.value(QLatin1String("display"));
    settings = settingsMessage(known, size);
    if (!display.isUndefined())
        settings.insert(QStringLiteral("display"), display);
    settings = withChanges(settings, step);
    return m_session->host().changeSettings(key.context(), settings)
               ? QString()
               : QStringLiteral("nobody is there");
}

// The steps after it wait until it is released.
void ScriptPlayer::press(const ScriptStep &step, const QString &context)
{
    sendPress(step.place, context, true);
    if (step.hold.count() == 0) {
        sendPress(step.place, context, false);
        return;
    }
    m_holding = true;
    QTimer::singleShot(step.hold, Qt::PreciseTimer, this, [this, place = step.place, context] {
        sendPress(place, context, false);
        m_holding = false;
        playDue();
    });
}

void ScriptPlayer::sendPress(const DeckPlace &place, const QString &context, bool down)
{
    DeckHost &host = m_session->host();
    if (place.dial)
        host.sendKeyEvent(QStringLiteral("dialPress"), context,
                          {{QStringLiteral("pressed"), down}});
    else
        host.sendKeyEvent(down ? QStringLiteral("keyDown") : QStringLiteral("keyUp"), context);
}

// The key on the place of the step, or null.
const DeckKey *ScriptPlayer::keyOf(const ScriptStep &step) const
{
    return m_session->host().keyAt(step.place);
}

void ScriptPlayer::beginToWait(const ScriptStep &step)
{
    m_waiting = true;
    const DeckKey *key = keyOf(step);
    m_picturesBefore = key == nullptr ? 0 : key->pictures();
    m_patience.start(step.within);
    // What is already there counts too.
    if (expectsMore(step))
        checkExpectation();
}

bool ScriptPlayer::isFulfilled(const ScriptStep &step) const
{
    const DeckKey *key = keyOf(step);
    if (key == nullptr || !key->lastUpdate())
        return false;
    if (!expectsMore(step))
        return key->pictures() > m_picturesBefore && !key->picture().isNull();
    return (!step.title || step.title->match(key->title()).hasMatch()) &&
           (!step.color.isValid() || hasColor(key->picture(), step.color)) &&
           (step.pictureSize.isEmpty() || key->picture().size() == step.pictureSize);
}

void ScriptPlayer::checkExpectation()
{
    if (!m_waiting || !isFulfilled(m_steps.at(m_next)))
        return;
    m_waiting = false;
    m_patience.stop();
    ++m_next;
    // From the event loop, because a step may remove a key that is just being changed.
    m_stepTimer.start(0);
}

void ScriptPlayer::onPatienceEnd()
{
    const ScriptStep &step = m_steps.at(m_next);
    QString shown = QStringLiteral("nothing is on it");
    if (const DeckKey *key = keyOf(step))
        shown = QStringLiteral("its title is \"%1\", its picture has %2 x %3 pixels")
                    .arg(key->title())
                    .arg(key->picture().width())
                    .arg(key->picture().height());
    end(QStringLiteral("Line %1 of the script: %2 did not come to show %3 in time; %4.")
            .arg(step.line)
            .arg(placeText(step.place), expectationText(step), shown));
}

void ScriptPlayer::end(const QString &failure)
{
    m_ended = true;
    m_stepTimer.stop();
    m_patience.stop();
    Q_EMIT finished(failure);
}

} // namespace deck
