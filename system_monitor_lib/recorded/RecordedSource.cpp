#include "system_monitor_lib/recorded/RecordedSource.h"

#include "system_monitor_lib/recorded/Recording.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>

namespace {

/// Time stamps of files advance in steps of up to 10 ms (a tick of the kernel), so two writes in
/// quick succession may have the same stamp.
constexpr std::chrono::nanoseconds stampResolution = std::chrono::milliseconds(50);

bool isSettled(const FileStamp &stamp)
{
    using namespace std::chrono;
    const nanoseconds now = system_clock::now().time_since_epoch();
    // Not computed as a difference, which could overflow: the stamp may have any value of its type.
    const nanoseconds changed(stamp.changedNs);
    return changed < now - stampResolution || changed > now + stampResolution;
}

} // namespace

bool operator==(const FileStamp &a, const FileStamp &b)
{
    return a.kind == b.kind && a.size == b.size && a.identity == b.identity &&
           a.modifiedNs == b.modifiedNs && a.changedNs == b.changedNs;
}

RecordedSource::RecordedSource(const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
{
}

bool RecordedSource::open()
{
    refresh();
    return m_good;
}

QJsonObject RecordedSource::tree(Query query)
{
    refresh();
    return m_trees.tree(query);
}

void RecordedSource::refresh()
{
    const FileStamp stamp = fileStamp(m_path);
    const bool changed = !(stamp == m_stamp);
    if (!changed && m_settled)
        return;
    if (changed)
        m_reported.clear();
    m_stamp = stamp;
    m_settled = isSettled(stamp);
    load();
}

std::variant<QByteArray, QString> RecordedSource::content() const
{
    // Opening a pipe would wait for its writer.
    if (m_stamp.kind == FileStamp::Kind::Missing)
        return QStringLiteral("it is missing");
    if (m_stamp.kind == FileStamp::Kind::Other)
        return QStringLiteral("it is not a regular file");
    if (m_stamp.size > largestFile)
        return QStringLiteral("its %1 bytes are too many").arg(m_stamp.size);

    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    QByteArray bytes = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (bytes.size() > largestFile)
        return QStringLiteral("it grew too large");
    return bytes;
}

void RecordedSource::load()
{
    const auto bytes = content();
    if (const auto *complaint = std::get_if<QString>(&bytes)) {
        report(QStringLiteral("cannot be read: %1").arg(*complaint));
        return;
    }
    const auto parsed = parseRecording(std::get<QByteArray>(bytes));
    if (const auto *complaint = std::get_if<QString>(&parsed)) {
        report(QStringLiteral("is broken: %1").arg(*complaint));
        return;
    }
    const auto &recording = std::get<Recording>(parsed);
    m_trees = recording.trees;
    m_good = true;
    if (recording.remarks.isEmpty())
        m_reported.clear();
    else
        report(
            QStringLiteral("is incomplete: %1").arg(recording.remarks.join(QStringLiteral(", "))));
}

void RecordedSource::report(const QString &complaint)
{
    if (complaint == m_reported)
        return;
    m_reported = complaint;
    qWarning("The recording %s %s", qUtf8Printable(m_path), qUtf8Printable(complaint));
}
