#include "loader.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"
#include "foundation/turn.h"

#include <QtCore/QMetaMethod>
#include <QtQml/QQmlIncubator>

#include <utility>

namespace ta::ui {

namespace {

// An item that changes the loader each time that it is completed would never let it come to an end.
constexpr int kMostRounds = 10;

// No item must hand on what is not a number: sizes never recover from it.
double numberOr0(double value)
{
    return qIsNaN(value) ? 0 : value;
}

} // namespace

class LoaderPrivate
{
public:
    explicit LoaderPrivate(Loader *q) : q(q) {}

    void updateItem();
    void releaseItem();
    void createItem();
    void followItem();
    void adopt(QObject *object);

    Loader *const q;
    QPointer<QQmlComponent> sourceComponent;
    QPointer<QQuickItem> item;
    QVariantMap properties;
    int changes = 0; // so many times the item was to be replaced
    bool creating = false;
    bool hasSource = false; // stays when the component is destroyed
};

namespace {

// Creates at once. Unlike the two phases of QQmlComponent, it may be nested: the item may contain a
// loader with the same component, as trees do.
class ItemIncubator : public QQmlIncubator
{
public:
    explicit ItemIncubator(const std::function<void(QObject *)> &prepare)
        : QQmlIncubator(Synchronous), m_prepare(prepare)
    {
    }

protected:
    void setInitialState(QObject *object) override { m_prepare(object); }

private:
    const std::function<void(QObject *)> m_prepare;
};

} // namespace

Loader::Loader(QQuickItem *parent) : QQuickItem(parent), d(std::make_unique<LoaderPrivate>(this)) {}

Loader::~Loader()
{
    if (d->item) // it loses its parent after this, which may change its implicit size
        d->item->disconnect(this);
}

QQmlComponent *Loader::sourceComponent() const
{
    return d->sourceComponent;
}

void Loader::setSourceComponent(QQmlComponent *component)
{
    // Null after a component that was destroyed is a change: its item has to go.
    const bool knowsSource = !assign(d->hasSource, component != nullptr);
    if (!assign(d->sourceComponent, component) && knowsSource)
        return;
    const QPointer<Loader> guard(this);
    Q_EMIT sourceComponentChanged();
    if (guard && isComponentComplete())
        d->updateItem();
}

QVariantMap Loader::properties() const
{
    return d->properties;
}

void Loader::setProperties(const QVariantMap &properties)
{
    if (!assign(d->properties, properties))
        return;
    const QPointer<Loader> guard(this);
    Q_EMIT propertiesChanged();
    if (guard && isComponentComplete())
        d->updateItem();
}

QQuickItem *Loader::item() const
{
    return d->item;
}

void Loader::componentComplete()
{
    const QPointer<Loader> guard(this);
    QQuickItem::componentComplete();
    if (guard && d->sourceComponent)
        d->updateItem();
}

// Any handler on the way may destroy the loader or ask for another item. What was asked for last
// holds; while an item is being created it has to wait until that is done.
void LoaderPrivate::updateItem()
{
    ++changes;
    if (creating)
        return;
    const QPointer<Loader> guard(q);
    int made = 0;
    for (int round = 0; made != changes; ++round) {
        if (round == kMostRounds) {
            qCWarning(lcUi, "A loader's item asks for another one whenever it is created");
            break;
        }
        made = changes;
        releaseItem();
        if (guard && made == changes)
            createItem();
        if (!guard)
            return;
    }

    const Turn turn(q, changes);
    Q_EMIT q->itemChanged();
    if (turn.isOver() || (sourceComponent && sourceComponent->isError()))
        return;
    q->updateImplicitSize();
    if (!turn.isOver())
        q->updateSize();
}

void LoaderPrivate::releaseItem()
{
    const QPointer<QQuickItem> old = std::exchange(item, nullptr);
    if (!old)
        return;
    old->disconnect(q);
    old->deleteLater();
    creating = true;
    const QPointer<Loader> guard(q);
    old->setParentItem(nullptr);
    if (guard)
        creating = false;
}

void LoaderPrivate::createItem()
{
    if (!sourceComponent)
        return;
    if (sourceComponent->isError()) {
        qCCritical(lcUi) << sourceComponent->errorString();
        return;
    }
    QQmlContext *context = creationContext(sourceComponent, q);
    if (!context)
        return;

    const QPointer<Loader> guard(q);
    creating = true;
    ItemIncubator incubator([this](QObject *object) { adopt(object); });
    sourceComponent->create(incubator, context);
    const QList<QQmlError> errors = incubator.errors();
    for (const QQmlError &error : errors)
        qCCritical(lcUi).noquote() << error.toString();
    if (!guard)
        return;
    creating = false;
    if (item && incubator.isError()) { // a required property, for instance, has no value
        item->deleteLater();
        item->setParentItem(nullptr);
        item.clear();
    }
    if (!item)
        return;
    followItem();
}

// By numbers: pointers to members would be stored with each connection.
void LoaderPrivate::followItem()
{
    static const int width = QMetaMethod::fromSignal(&QQuickItem::implicitWidthChanged)
                                 .methodIndex();
    static const int height = QMetaMethod::fromSignal(&QQuickItem::implicitHeightChanged)
                                  .methodIndex();
    static const int update = Loader::staticMetaObject.indexOfSlot("updateImplicitSize()");
    QMetaObject::connect(item, height, q, update, Qt::DirectConnection);
    QMetaObject::connect(item, width, q, update, Qt::DirectConnection);
}

// Runs between creation and completion, so that the item's bindings see the values.
void LoaderPrivate::adopt(QObject *object)
{
    const QPointer<Loader> guard(q);
    const QPointer<QObject> created(object);
    const QVariantMap values = properties;
    for (auto it = values.begin(); created && it != values.end(); ++it)
        created->setProperty(it.key().toLatin1().constData(), it.value());
    auto *newItem = qobject_cast<QQuickItem *>(created);
    if (!guard || !newItem) {
        if (created)
            created->deleteLater();
        return;
    }
    item = newItem;
    newItem->setParent(q);
    newItem->setParentItem(q);
}

// Before the handlers of the loader's own new size, as if it had been connected first: a connection
// to a signal of QQuickItem costs more memory than all the rest of a loader.
void Loader::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    const QPointer<Loader> guard(this);
    if (newGeometry.size() != oldGeometry.size())
        updateSize();
    if (guard)
        QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

void Loader::updateSize()
{
    if (d->item)
        d->item->setSize(size());
}

void Loader::updateImplicitSize()
{
    const QPointer<Loader> guard(this);
    double value = d->item ? numberOr0(d->item->implicitWidth()) : 0;
    if (!qFuzzyCompare(value, implicitWidth())) {
        setImplicitWidth(value);
        if (guard)
            Q_EMIT implicitWidth2Changed();
    }
    if (!guard)
        return;
    value = d->item ? numberOr0(d->item->implicitHeight()) : 0;
    if (!qFuzzyCompare(value, implicitHeight())) {
        setImplicitHeight(value);
        if (guard)
            Q_EMIT implicitHeight2Changed();
    }
}

} // namespace ta::ui
