#pragma once

#include <QString>

/// A text by which devices sort as they are built in: by their place in the tree of devices, those
/// on USB after all others, because they come and go. \a device is a link into that tree.
QString orderOfDevice(const QString &device);
