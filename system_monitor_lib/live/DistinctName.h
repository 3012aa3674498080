#pragma once

#include <QString>

#include <algorithm>
#include <vector>

/// The \a name of \a device, including its place if several of \a all have that name.
template <typename Device>
QString distinctName(const Device &device, const std::vector<Device> &all, QString Device::*name)
{
    const auto namesakes = std::count_if(
        all.begin(), all.end(), [&](const Device &other) { return other.*name == device.*name; });
    return namesakes > 1 ? QStringLiteral("%1 (%2)").arg(device.*name, device.place) : device.*name;
}
