#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

class normalAction;

/// Code that several fuzzers use.
namespace fuzz {

/// Drops all of Qt's messages except fatal ones, which end the process.
void silence();

/// A silent application object without a display, and the fonts of the tests. Never deleted.
void makeApplication();

QByteArray bytesOf(const std::uint8_t *data, std::size_t size);

/// The input decoded from UTF-8, as a text message of a WebSocket is.
QString textOf(const std::uint8_t *data, std::size_t size);

/// Ends the process as a finding when \a holds is false.
void require(bool holds);

/// Limits \a key to a small picture, because the largest ones take half a second. Its letters may
/// still be large enough to be drawn as outlines, and the picture wide enough for several strips.
void keepSmall(normalAction &key);

/// Sets the trees and the machine that the in-memory library serves, from the members of \a object:
/// those named after the queries, as in a recording, "drives" and "devices".
void serve(const QJsonObject &object);

/// Serves the recording of a desktop and takes its readings.
void takeDesktopReadings();

/// One file in a folder of its own, rewritten for each input.
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
