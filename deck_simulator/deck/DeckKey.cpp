#include "deck_simulator/deck/DeckKey.h"

#include "deck_simulator/deck/DisplaySettings.h"
#include "deck_simulator/deck/KeyPicture.h"

namespace deck {

DeckKey::DeckKey(const QString &name, const QString &action, const QString &context,
                 const QJsonObject &settings)
    : m_name(name)
    , m_action(action)
    , m_context(context)
    , m_settings(settings)
{
}

bool DeckKey::showsGauge() const
{
    const QJsonObject display = m_settings.value(QLatin1String("display")).toObject();
    return isGaugePicture(m_picture.size(), displayFrom(display));
}

void DeckKey::takeTitle(const QString &title, qint64 now)
{
    m_title = title;
    m_lastUpdate = now;
}

bool DeckKey::takePicture(const QString &dataUrl, qint64 now)
{
    const QImage picture = decodeKeyPicture(dataUrl);
    if (picture.isNull() && !isEmptyPicture(dataUrl)) {
        ++m_brokenPictures;
        return false;
    }
    m_picture = picture;
    if (!picture.isNull())
        m_pictureSize = picture.size();
    m_pictureBytes = picture.isNull() ? 0 : static_cast<int>(dataUrl.size());
    m_lastUpdate = now;
    ++m_pictures;
    return true;
}

void DeckKey::takeSettings(const QJsonObject &settings)
{
    m_settings = settings;
    ++m_settingsReplies;
}

} // namespace deck
