#include "deck_simulator/terminal/HeadlessRun.h"

#include "deck_simulator/deck/ContactSheet.h"
#include "deck_simulator/deck/PictureFile.h"
#include "deck_simulator/host/DeckStatus.h"
#include "deck_simulator/script/ScriptPlayer.h"
#include "deck_simulator/terminal/DeckReport.h"
#include "deck_simulator/terminal/TerminalTable.h"

#include <QDir>
#include <QTime>

#include <cstdio>

namespace deck {

namespace {

constexpr int meterPeriod = 500;    // milliseconds
constexpr int terminalPeriod = 500; // milliseconds
constexpr int plainWidth = 120;

} // namespace

QByteArray replacementFrame(const QStringList &lines, int previousLines)
{
    QByteArray frame("\x1b[?25l");
    if (previousLines > 0)
        frame += "\x1b[" + QByteArray::number(previousLines) + "A";
    for (const QString &line : lines)
        frame += "\r" + line.toUtf8() + "\x1b[K\r\n";
    return frame + "\x1b[J\x1b[?25h";
}

HeadlessRun::HeadlessRun(const SimulatorOptions &options, DeckSession *session, QObject *parent)
    : QObject(parent)
    , m_options(options)
    , m_session(session)
    , m_terminalSize(m_terminal.size())
{
    connect(m_session, &DeckSession::keysAppeared, this, &HeadlessRun::onKeysAppeared);
    connect(m_session, &DeckSession::ended, this, &HeadlessRun::onEnded);
    connect(m_session, &DeckSession::notice, this, &HeadlessRun::report);
    connect(m_session, &DeckSession::stalledChanged, this, [this](bool stalled) {
        // A link that is gone says nothing of the plugin.
        if (m_session->host().isRegistered())
            report(stallText(stalled));
    });
    connect(&m_tableTimer, &QTimer::timeout, this, &HeadlessRun::showTable);
    connect(&m_meterTimer, &QTimer::timeout, this, &HeadlessRun::measure);
    m_endTimer.setSingleShot(true);
}

void HeadlessRun::start()
{
    m_meterTimer.start(meterPeriod);
    if (!m_options.quiet && m_terminal.isInteractive())
        m_tableTimer.start(terminalPeriod);
    else if (!m_options.quiet)
        connect(m_session, &DeckSession::keyChanged, this, &HeadlessRun::showChange);
    m_session->start();
}

void HeadlessRun::interrupt()
{
    m_endTimer.stop();
    if (!m_options.snapshotFile.isEmpty() && !m_snapshotTaken && m_failure.isEmpty())
        m_failure = QStringLiteral("Interrupted before the snapshot was taken.");
    m_session->end();
}

void HeadlessRun::onKeysAppeared()
{
    if (!m_script.isEmpty()) {
        playScript();
    } else if (!m_options.snapshotFile.isEmpty()) {
        connect(&m_endTimer, &QTimer::timeout, this, &HeadlessRun::takeSnapshot);
        m_endTimer.start(m_options.snapshotAfter);
    } else if (m_options.runFor) {
        connect(&m_endTimer, &QTimer::timeout, m_session, &DeckSession::end);
        m_endTimer.start(*m_options.runFor);
    }
}

void HeadlessRun::playScript()
{
    auto *player = new ScriptPlayer(m_script, m_session, this);
    connect(player, &ScriptPlayer::snapshotWanted, this, &HeadlessRun::writeSnapshot);
    connect(player, &ScriptPlayer::finished, this, [this](const QString &failure) {
        m_scriptPlayed = true;
        if (m_failure.isEmpty())
            m_failure = failure;
        if (!m_session->isEnding())
            m_session->end();
    });
    player->start();
}

void HeadlessRun::takeSnapshot()
{
    m_snapshotTaken = true;
    const QStringList missing = writeSnapshot(m_options.snapshotFile);
    if (m_failure.isEmpty() && !missing.isEmpty())
        m_failure = QStringLiteral("The plugin has drawn nothing on: %1.")
                        .arg(missing.join(QStringLiteral("; ")));
    m_session->end();
}

// The names of the keys without a picture.
QStringList HeadlessRun::writeSnapshot(const QString &file)
{
    QVector<SheetPicture> pictures;
    QStringList missing;
    for (const DeckKey &key : m_session->host().keys()) {
        pictures.append({key.picture(), key.showsGauge()});
        if (key.picture().isNull())
            missing.append(key.name());
    }
    const QImage sheet = paintContactSheet(pictures, {m_options.columns, m_options.keySize});
    const QString fault = writePicture(sheet, file);
    if (!fault.isEmpty())
        m_failure = QStringLiteral("The snapshot %1 cannot be written: %2.")
                        .arg(QDir::toNativeSeparators(file), fault);
    return missing;
}

void HeadlessRun::onEnded()
{
    m_endTimer.stop();
    m_tableTimer.stop();
    m_meterTimer.stop();
    if (!m_options.quiet && !m_outputGone && m_session->host().counters().frames > 0)
        showTable();
    if (m_failure.isEmpty() && !m_script.isEmpty() && !m_scriptPlayed)
        m_failure = QStringLiteral("The script was not played to its end.");
    if (!m_failure.isEmpty())
        report(m_failure);
    if (!m_session->failure().isEmpty())
        report(m_session->failure());
    const bool well = m_failure.isEmpty() && m_session->failure().isEmpty();
    Q_EMIT finished(well ? 0 : 1);
}

void HeadlessRun::measure()
{
    const DeckHost &host = m_session->host();
    m_meter.add(host.now(), host.counters().frames, host.counters().bytes);
}

void HeadlessRun::showTable()
{
    const QByteArray text = m_terminal.isInteractive()
                                ? tableInPlace()
                                : tableText(plainWidth).join(QLatin1Char('\n')).toUtf8() + "\n\n";
    if (!m_terminal.write(text))
        m_tableTimer.stop();
}

void HeadlessRun::showChange(const QString &context)
{
    const DeckKey *key = m_session->host().key(context);
    if (key == nullptr || m_outputGone || m_shownTitles.value(context) == key->title())
        return;
    m_shownTitles.insert(context, key->title());
    const QString line = changeLine(*key, QTime::currentTime()) + QLatin1Char('\n');
    m_outputGone = !m_terminal.write(line.toUtf8());
}

QByteArray HeadlessRun::tableInPlace()
{
    QByteArray begin;
    const QSize size = m_terminal.size();
    // Lines that a narrower window has broken cannot be counted: begin on a clear screen.
    if (size != m_terminalSize) {
        m_terminalSize = size;
        m_shownLines = 0;
        begin = "\x1b[2J\x1b[H";
    }
    // The last column stays free, as terminals differ in what they do after it.
    const QStringList lines =
        cutRows(tableText(qMax(1, size.width() - 1)), qMax(1, size.height() - 1));
    const int previousLines = m_shownLines;
    m_shownLines = static_cast<int>(lines.size());
    return begin + replacementFrame(lines, previousLines);
}

QStringList HeadlessRun::tableText(int width) const
{
    const DeckHost &host = m_session->host();
    DeckStatus status;
    status.link = m_session->stateText();
    status.pluginPid = m_session->pluginPid();
    status.framesPerSecond = m_meter.framesPerSecond();
    status.bytesPerSecond = m_meter.bytesPerSecond();
    status.sensorRequests = m_session->service().requests();
    status.counters = host.counters();
    return deckReport(host.keys(), status, host.now(), width);
}

void HeadlessRun::report(const QString &text)
{
    // What is on the terminal already stays; the next table goes below.
    m_shownLines = 0;
    const QByteArray bytes = QStringLiteral("deck_simulator: %1\n").arg(text).toLocal8Bit();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

} // namespace deck
