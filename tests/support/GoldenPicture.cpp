#include "tests/support/GoldenPicture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QVersionNumber>

#include <algorithm>
#include <cstdlib>

namespace {

/// The largest difference, of 255, in each of the four channels.
constexpr int channelTolerance = 32;
constexpr int pixelsPerDifferentOne = 200;

bool isDifferent(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))}) >
           channelTolerance;
}

/// How many pixels of two pictures of the same size and format are different.
int differentPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += isDifferent(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
    }
    return count;
}

/// Makes almost transparent pixels similar, because they look alike whatever their colour.
QImage comparable(const QImage &image)
{
    return image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
}

QString sizeText(const QImage &image)
{
    return QStringLiteral("%1x%2").arg(image.width()).arg(image.height());
}

QString difference(const QImage &golden, const QImage &actual)
{
    if (golden.isNull())
        return QStringLiteral("there is no such picture");
    if (golden.size() != actual.size())
        return QStringLiteral("%1 became %2").arg(sizeText(golden), sizeText(actual));
    const int count = differentPixels(comparable(golden), comparable(actual));
    if (count <= golden.width() * golden.height() / pixelsPerDifferentOne)
        return {};
    return QStringLiteral("%1 pixels of %2 are different").arg(count).arg(sizeText(golden));
}

QString pathOf(const QString &name)
{
    const int version = QLibraryInfo::version().majorVersion();
    const QString own = QStringLiteral(GOLDEN_FOLDER "/qt%1/%2.png").arg(version).arg(name);
    return QFile::exists(own) ? own : QStringLiteral(GOLDEN_FOLDER "/%1.png").arg(name);
}

} // namespace

GoldenPicture::GoldenPicture(const QString &name)
    : m_name(name)
    , m_path(pathOf(name))
{
}

QString GoldenPicture::differenceFrom(const QImage &actual) const
{
    if (qEnvironmentVariableIntValue("UPDATE_GOLDEN") == 1)
        return actual.save(m_path) ? QString() : QStringLiteral("cannot write ") + m_path;
    const QString found = difference(QImage(m_path), actual);
    if (found.isEmpty())
        return {};
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString written = folder.filePath(m_name + QStringLiteral("-actual.png"));
    actual.save(written);
    return QStringLiteral("%1: %2; see %3").arg(m_path, found, written);
}
