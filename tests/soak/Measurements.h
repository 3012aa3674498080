#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The resources that the plugin uses, over time.
class Measurements
{
public:
    struct Sample
    {
        double minutes = 0;
        double residentMB = 0;
        int descriptors = 0;
        qint64 pictures = 0;
    };

    void add(const Sample &sample) { m_samples.append(sample); }

    /// Memory and descriptors as a line each over the time, as an SVG picture.
    QByteArray plot() const;

private:
    QVector<Sample> m_samples;
};
