#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

namespace deck {

/// Notices when a recording breaks while it is in use, and when it can be read again.
class RecordingWatch : public QObject
{
    Q_OBJECT

public:
    /// The interval between two looks at the file in milliseconds.
    static constexpr int period = 500;

    explicit RecordingWatch(QObject *parent = nullptr);

    /// Follows \a fileName from its state of now on; empty: none.
    void follow(const QString &fileName);
    /// What is wrong with the recording (see recordingFault); empty if nothing is.
    [[nodiscard]] const QString &fault() const { return m_fault; }

Q_SIGNALS:
    void broke(const QString &fault);
    void mended();

private:
    struct Stamp
    {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;
    };

    [[nodiscard]] Stamp stamp() const;
    void look();

    QString m_fileName;
    Stamp m_stamp;
    QString m_fault;
    QTimer m_timer;
    bool m_judged = true; // the file as it is now
};

} // namespace deck
