#pragma once

#include "system_monitor_lib/Query.h"

#include <QJsonObject>

/// Where the library's sensor trees come from: a recording, or this machine.
class TreeSource
{
public:
    TreeSource() = default;
    virtual ~TreeSource() = default;
    Q_DISABLE_COPY(TreeSource)

    /// Called once, before any query. False when the source has no data; queries may still be made,
    /// because data may become available later.
    virtual bool open() = 0;
    /// The current tree of one query; empty when there are no readings.
    virtual QJsonObject tree(Query query) = 0;
};
