#pragma once

#include "../foundation/export.h"

#include <QtCore/QVariantMap>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class LoaderPrivate;

/*!
    Creates one item from a component, fills itself with it and takes over its implicit size.

    The item gets the values of \l properties before its bindings are evaluated. A new component and
    a changed map replace the item at once; a map is never applied to an item that is there already.
    There is no asynchronous loading, no URL and no status.

    Where the component is null, has errors or creates no item, there is no item, and the implicit
    size is that of nothing.

    QML: \c UiLoader.
*/
class TAMBERUI_EXPORT Loader : public QQuickItem
{
    Q_OBJECT
    // They hide those of QQuickItem, which can be written.
    Q_PROPERTY(double implicitWidth READ implicitWidth NOTIFY implicitWidth2Changed)
    Q_PROPERTY(double implicitHeight READ implicitHeight NOTIFY implicitHeight2Changed)
    Q_PROPERTY(QQmlComponent *sourceComponent READ sourceComponent WRITE setSourceComponent NOTIFY
                   sourceComponentChanged)
    Q_PROPERTY(QVariantMap properties READ properties WRITE setProperties NOTIFY propertiesChanged)
    Q_PROPERTY(QQuickItem *item READ item NOTIFY itemChanged)

public:
    explicit Loader(QQuickItem *parent = nullptr);
    ~Loader() override;

    /// The component to create the item from; not owned, null by default.
    QQmlComponent *sourceComponent() const;
    void setSourceComponent(QQmlComponent *component);

    /// Initial values by the names of the item's properties; empty by default. A name that the item
    /// does not have becomes a dynamic property of it.
    QVariantMap properties() const;
    void setProperties(const QVariantMap &properties);

    /// The item, which belongs to the loader, or null.
    QQuickItem *item() const;

Q_SIGNALS:
    void implicitWidth2Changed();
    void implicitHeight2Changed();
    void sourceComponentChanged();
    void propertiesChanged();
    void itemChanged();

protected:
    void componentComplete() override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private Q_SLOTS:
    void updateSize();
    void updateImplicitSize();

private:
    friend class LoaderPrivate;
    const std::unique_ptr<LoaderPrivate> d;
};

} // namespace ta::ui
