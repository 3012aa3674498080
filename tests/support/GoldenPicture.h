#pragma once

#include <QImage>
#include <QString>

/// A picture that was looked at and kept: tests/golden/qt6/NAME.png, or that of another version of
/// Qt, where there is one, else tests/golden/NAME.png. With UPDATE_GOLDEN=1 in the environment,
/// comparing replaces it by the actual picture.
class GoldenPicture
{
public:
    explicit GoldenPicture(const QString &name);

    /// Empty when \a actual looks like this picture: the same size, and all but one pixel in 200
    /// the same, within what versions of the font renderer differ by. Otherwise the difference and
    /// the path of the actual picture, which is written beside the test program.
    QString differenceFrom(const QImage &actual) const;

private:
    QString m_name;
    QString m_path;
};
