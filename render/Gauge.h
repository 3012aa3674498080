#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>
#include <QVector>

#include <optional>

/// A gauge as it is painted: texts are final, values are shares of the scale.
namespace gauge {

enum class Style { Bar, Ring, Graph, Pair };
enum class Level { Normal, Warning, Critical };
/// What is shown instead of the present value, told by a small mark.
enum class Extreme { None, Minimum, Maximum, Mean };

struct Point
{
    double age;   ///< Seconds before the picture's time, not negative.
    double share; ///< Of the scale, 0 to 1.
};

/// Runs of points without a gap, each from its oldest to its newest.
using Trace = QVector<QVector<Point>>;

/// One value with its history.
struct Reading
{
    QString value;               ///< Digits only; "–" for a missing one.
    QString unit;                ///< Empty where there is none.
    QString widest;              ///< The widest value of late, which decides the size.
    std::optional<double> share; ///< Of the scale, 0 to 1; nothing where the reading is missing.
    Trace trace;
};

struct Content
{
    Style style = Style::Bar;
    QString title;  ///< Empty: none, and the value takes its room.
    Reading first;  ///< Of a pair: upload.
    Reading second; ///< Of a pair: download; unused otherwise.
    Level level = Level::Normal;
    Extreme extreme = Extreme::None;
    double span = 60;           ///< Seconds that a trace covers.
    QVector<double> thresholds; ///< Shares of the scale.
};

struct Look
{
    QSize size; ///< A square, or twice as wide as high.
    QFont font; ///< Its size does not matter.
    QColor color;
    QColor normal;
    QColor warning;
    QColor critical;
    QColor ground;      ///< Invalid or transparent: none.
    double opacity = 1; ///< Of the finished picture, 0 to 1.
};

} // namespace gauge

/// The picture of \a content, in QImage::Format_ARGB32.
QImage paintGauge(const gauge::Content &content, const gauge::Look &look);
