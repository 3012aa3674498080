#pragma once

#include "SDK/Action.h"
#include "render/Gauge.h"
#include "render/KeySettings.h"

#include <QFont>
#include <QImage>
#include <QStringList>
#include <QTimer>

struct PictureStyle;

/// One key of the deck: its settings, its selections and the picture it shows. Used on the main
/// thread. The fields are open to the plugin, which reads the settings and writes the selections.
class normalAction : public Action, public KeySettings
{
public:
    normalAction(ConnectionManager *connectionManager, const QString &action,
                 const QString &context);
    ~normalAction() override;
    Q_DISABLE_COPY(normalAction)

    /// Replaces all settings by those of the event's payload. The font's pixel size depends on the
    /// width of the last picture, and so on what the key showed before.
    void applySettings(const QJsonObject &payload);

    /// Sets `font` and `fontSpec`; see fontregistry::fontFromSpec.
    void setFontFromSpec(const QString &spec);

    /// Paints one line, "TITLE: TEXT" or the text alone, and returns it as a PNG data URL.
    QString normalPainting(const QString &textToDraw);

    /// Paints the two lines of a network key that is set to two lines. For any other key it returns
    /// an empty text and keeps the picture.
    QString paintingTwoLines(const QString &uploadText, const QString &downloadText);

    /// Does what the first painting would otherwise have to: loads the font and the shapes of usual
    /// glyphs, makes the encoder's tables. The key stays as it is.
    void prepareToPaint() const;

    /// The line that normalPainting paints becomes `displayedText`; nothing is painted.
    void composeLine(const QString &text);

    /// Likewise the two lines that paintingTwoLines paints; returns them, or an empty list where
    /// that returns an empty text.
    QStringList composeTwoLines(const QString &uploadText, const QString &downloadText);

    /// Paints a gauge and returns it as a PNG data URL.
    QString gaugePainting(const gauge::Content &content, const gauge::Look &look);

    QImage keyImage;                     ///< The last picture.
    int textAlignment = Qt::AlignCenter; ///< Of each line within its own rectangle.
    QString displayedText; ///< The last text composed; two lines are joined by a line feed.
    QString letterColor;   ///< Of the letters, in place of `color` unless it is empty.
    QFont font;
    int imageWidth = 0;  ///< Of the last picture, in pixels; 0 before the first.
    int imageHeight = 0; ///< Likewise.
    QTimer switchTimer;  ///< Steps a key that loops over the drives.
    int driveIndex = 0;  ///< The drive that a disk key shows.
    // What a key with a choice shows.
    QString SelectPhysicalDisk;
    QString SelectValue;
    QString SelectCPUFan;

private:
    void updateFontPixelSize();
    PictureStyle pictureStyle() const;
    bool drawsTitle() const { return showTitle && !titleText.isEmpty(); }
};
