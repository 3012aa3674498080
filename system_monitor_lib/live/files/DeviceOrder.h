#pragma once

#include <QString>

/// A sort key that orders devices as they are built in: by their place in the tree of devices,
/// those on USB last, because they can be plugged in. \a device is a link into that tree.
QString orderOfDevice(const QString &device);
