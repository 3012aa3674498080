#pragma once

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/TreeSource.h"
#include "system_monitor_lib/recorded/FileStamp.h"

#include <QByteArray>
#include <QString>

#include <variant>

/// Serves the trees of a recording (see Recording.h). The file is read again whenever it has
/// changed; while it is missing or broken the last good trees stay, and a line is logged each time
/// that it becomes missing or broken.
class RecordedSource : public TreeSource
{
public:
    /// Larger files are refused (bytes).
    static constexpr qint64 largestFile = qint64{64} * 1024 * 1024;

    explicit RecordedSource(const QString &path);

    /// True when the file holds a recording.
    bool open() override;
    QJsonObject tree(Query query) override;

private:
    /// Checks the file, and reads it if it differs from the one read last.
    void refresh();
    /// The file's bytes, or why there are none.
    [[nodiscard]] std::variant<QByteArray, QString> content() const;
    void load();
    void report(const QString &complaint);

    const QString m_path;
    SensorTrees m_trees;
    bool m_good = false;
    /// The state in which the file was read last, and whether it can be distinguished from a later
    /// one.
    FileStamp m_stamp;
    bool m_settled = false;
    QString m_reported;
};
