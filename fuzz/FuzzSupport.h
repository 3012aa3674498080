#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

class normalAction;

/// What several fuzzers need.
namespace fuzz {

/// Drops every message of the framework's debug stream but fatal ones, which end the process.
void silence();

/// A silent application object without a display, and the fonts of the tests. Never deleted.
void makeApplication();

QByteArray bytesOf(const std::uint8_t *data, std::size_t size);

/// The input as UTF-8, the way a text message of a WebSocket comes in.
QString textOf(const std::uint8_t *data, std::size_t size);

/// Ends the process as a finding when \a holds is false.
void require(bool holds);

/// Holds \a key to a small picture: the largest ones take half a second. Its letters may still be
/// so large that they are drawn as outlines, and it wide enough for several strips.
void keepSmall(normalAction &key);

/// The trees and the machine that the in-memory library serves: members of \a object named after
/// its queries as in a recording, "drives" and "devices".
void serve(const QJsonObject &object);

/// Serves the recording of a desktop and takes its readings.
void takeDesktopReadings();

/// One file in a folder of its own, written anew for each input.
class ScratchFile
{
public:
    explicit ScratchFile(const QString &name);

    void write(const QByteArray &content) const;
    [[nodiscard]] QString path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

} // namespace fuzz
