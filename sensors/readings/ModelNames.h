#pragma once

#include <QJsonObject>
#include <QString>

/// The names of processor and graphics.
struct ModelNames
{
    QString cpu;
    QString gpu;
};

/// Takes the names from the groups of the full sensor tree ("CPU [#0]: NAME", "GPU [#0]: NAME"),
/// starting from \a known. A later group may replace a name as long as the other one is missing;
/// graphics without a name are "integrated GPU".
ModelNames modelNames(const QJsonObject &allSensors, ModelNames known);
