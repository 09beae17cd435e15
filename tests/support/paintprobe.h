#pragma once

#include <QtQuick/QQuickItem>
#include <QtQuick/QSGGeometryNode>

namespace ta::test {

/// An \a Item whose node can be asked for without a window, and which counts how often it was.
template <typename Item>
class PaintProbe : public Item
{
public:
    using Item::Item;

    QSGGeometryNode *paint(QSGNode *oldNode = nullptr)
    {
        return static_cast<QSGGeometryNode *>(updatePaintNode(oldNode, nullptr));
    }
    int paints = 0;

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, typename Item::UpdatePaintNodeData *data) override
    {
        ++paints;
        return Item::updatePaintNode(oldNode, data);
    }
};

} // namespace ta::test
