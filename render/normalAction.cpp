#include "render/normalAction.h"

#include "SDK/Logger/Logger.h"
#include "render/ActionCatalogue.h"
#include "render/ActionUuids.h"
#include "render/FontRegistry.h"
#include "render/KeyPicture.h"
#include "render/ShapedLine.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

struct Prefixes
{
    QString upload;
    QString download;
};

/// The parts of "UPLOAD/DOWNLOAD". A title without a slash is replaced by one that has it.
Prefixes splitTitle(QString &title)
{
    // Compatibility: title-rewritten
    if (!title.contains(QLatin1Char('/')))
        title = QStringLiteral("上传/下载");
    const auto slash = title.indexOf(QLatin1Char('/'));
    return {title.left(slash), title.mid(slash + 1)};
}

QString titled(const QString &title, const QString &text)
{
    return title + QStringLiteral(": ") + text;
}

} // namespace

normalAction::normalAction(ConnectionManager *connectionManager, const QString &action,
                           const QString &context)
    : Action(connectionManager, action, context)
{
    switchTimer.setTimerType(Qt::PreciseTimer);
    setFontFromSpec(QStringLiteral("Roboto|Bold"));
    titleText = defaultTitle(GetAction());
}

normalAction::~normalAction()
{
    switchTimer.stop();
}

void normalAction::applySettings(const QJsonObject &payload)
{
    KeySettings &settings = *this;
    settings = parseKeySettings(payload);
    LogDebug(labelled("我拿到的字体: ", fontSpec));
    LogDebug(labelled("我当前的字体大小: ", font.pixelSize()));
    LogDebug(
        labelled("我拿到的字体大小: ", QString::number(static_cast<double>(fontSize), 'g', 6)));
    setFontFromSpec(fontSpec);
    updateFontPixelSize();
}

void normalAction::setFontFromSpec(const QString &spec)
{
    const QFont chosen = fontregistry::fontFromSpec(spec, font.pointSize());
    fontSpec = spec;
    font = chosen;
}

void normalAction::updateFontPixelSize()
{
    if (imageWidth == 0)
        LogDebug(QStringLiteral("发生错误，ActionW=0"));
    // Compatibility: font-size-feedback
    font.setPixelSize(fontPixelSize(fontSize, keyWidth, imageWidth));
}

void normalAction::composeLine(const QString &text)
{
    LogDebug(labelled("textToDraw: ", text));
    displayedText = drawsTitle() ? titled(titleText, text) : text;
}

QString normalAction::normalPainting(const QString &textToDraw)
{
    composeLine(textToDraw);

    const ShapedLine line(displayedText, font);
    imageWidth = line.width();
    imageHeight = QFontMetrics(font).height();
    const PaintedPicture picture = paintPicture(
        {imageWidth, imageHeight}, {{QRect(0, 0, imageWidth, imageHeight), &line}}, pictureStyle());
    keyImage = picture.image;
    return pngDataUrl(picture, "normalAction::normalPainting");
}

void normalAction::prepareToPaint() const
{
    const ShapedLine line(titled(titleText, QStringLiteral("0123456789.%°")), font);
    const QRect rect(0, 0, line.width(), QFontMetrics(font).height());
    const PaintedPicture picture = paintPicture(rect.size(), {{rect, &line}}, pictureStyle());
    encodedPng(picture.image, picture.pixels);
}

QStringList normalAction::composeTwoLines(const QString &uploadText, const QString &downloadText)
{
    if (GetAction() != actionuuid::netWork || !isTwoLines())
        return {};
    QStringList lines{uploadText, downloadText};
    if (drawsTitle()) {
        const Prefixes prefixes = splitTitle(titleText);
        lines = QStringList{titled(prefixes.upload, uploadText),
                            titled(prefixes.download, downloadText)};
    }
    displayedText = lines.join(QLatin1Char('\n'));
    return lines;
}

QString normalAction::paintingTwoLines(const QString &uploadText, const QString &downloadText)
{
    const QStringList lines = composeTwoLines(uploadText, downloadText);
    if (lines.isEmpty())
        return {};
    const ShapedLine first(lines.first(), font);
    const ShapedLine second(lines.last(), font);
    const int lineHeight = QFontMetrics(font).height();
    imageWidth = std::max(first.width(), second.width());
    imageHeight = 2 * lineHeight;
    // Compatibility: flush-left
    // Each line is centred in a rectangle of its own width: the shorter one stands flush left.
    const PaintedPicture picture =
        paintPicture({imageWidth, imageHeight},
                     {{QRect(0, 0, first.width(), lineHeight), &first},
                      {QRect(0, lineHeight, second.width(), lineHeight), &second}},
                     pictureStyle());
    keyImage = picture.image;
    return pngDataUrl(picture, "normalAction::paintingTwoLines");
}

PictureStyle normalAction::pictureStyle() const
{
    // Compatibility: opacity-is-transparency
    return {font, letterColor.isEmpty() ? color : letterColor, 1.0 - opacity, textAlignment};
}

QString normalAction::gaugePainting(const gauge::Content &content, const gauge::Look &look)
{
    keyImage = paintGauge(content, look);
    imageWidth = keyImage.width();
    imageHeight = keyImage.height();
    return pngDataUrl({keyImage}, "normalAction::gaugePainting");
}
