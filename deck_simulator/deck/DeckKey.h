#pragma once

#include "deck_simulator/deck/DeckPlace.h"

#include <QImage>
#include <QJsonObject>
#include <QSize>
#include <QString>

#include <optional>

namespace deck {

/// One key of the simulated deck: its action and settings, and what the plugin has sent for it.
/// Times are milliseconds of the host's clock.
class DeckKey
{
public:
    /// \a name is the simulator's own caption; \a context identifies the key on the link.
    DeckKey(const QString &name, const QString &action, const QString &context,
            const QJsonObject &settings);

    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] const QString &action() const { return m_action; }
    [[nodiscard]] const QString &context() const { return m_context; }
    /// Its place on the deck; if there is none, its position in the profile decides.
    [[nodiscard]] const std::optional<DeckPlace> &place() const { return m_place; }
    void setPlace(const DeckPlace &place) { m_place = place; }
    /// The settings as the plugin last returned them, or as the host last changed
    /// them.
    [[nodiscard]] const QJsonObject &settings() const { return m_settings; }
    [[nodiscard]] const QString &title() const { return m_title; }
    /// The last valid picture; null before the first and after an empty one.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /// Whether the picture is a gauge (see isGaugePicture).
    [[nodiscard]] bool showsGauge() const;
    /// Size of the last picture that was not empty; empty before the first.
    [[nodiscard]] QSize pictureSize() const { return m_pictureSize; }
    /// Length of the text that carried the last picture.
    [[nodiscard]] int pictureBytes() const { return m_pictureBytes; }
    [[nodiscard]] quint64 pictures() const { return m_pictures; }
    [[nodiscard]] quint64 brokenPictures() const { return m_brokenPictures; }
    [[nodiscard]] quint64 settingsReplies() const { return m_settingsReplies; }
    /// When the last picture or title came; nothing before the first.
    [[nodiscard]] std::optional<qint64> lastUpdate() const { return m_lastUpdate; }

    void takeTitle(const QString &title, qint64 now);
    /// An empty picture, as of an empty reading, clears the last one. False for a text that is not
    /// a picture: it is counted, and the previous picture stays.
    bool takePicture(const QString &dataUrl, qint64 now);
    void takeSettings(const QJsonObject &settings);
    /// A change by the host, not a reply of the plugin.
    void changeSettings(const QJsonObject &settings) { m_settings = settings; }

private:
    QString m_name;
    QString m_action;
    QString m_context;
    std::optional<DeckPlace> m_place;
    QJsonObject m_settings;
    QString m_title;
    QImage m_picture;
    QSize m_pictureSize;
    int m_pictureBytes = 0;
    quint64 m_pictures = 0;
    quint64 m_brokenPictures = 0;
    quint64 m_settingsReplies = 0;
    std::optional<qint64> m_lastUpdate;
};

} // namespace deck
