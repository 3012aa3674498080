#pragma once

#include <QTreeView>

namespace deck {

/// The list of actions, from which they are dragged. The picture of a drag is a small key.
class ActionView : public QTreeView
{
    Q_OBJECT

public:
    using QTreeView::QTreeView;

protected:
    void startDrag(Qt::DropActions supportedActions) override;
};

} // namespace deck
