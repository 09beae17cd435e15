// variants: threaded scale2 x11
#include "support/colors.h"
#include "support/paintprobe.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Border>
#include <TamberUi/CheckerBoard>
#include <TamberUi/DefaultSlider>
#include <TamberUi/Icon>
#include <TamberUi/Thumbnail>

#include <QtCore/QTemporaryDir>

#include <limits>

#if defined(__SANITIZE_ADDRESS__)
#    include <sanitizer/lsan_interface.h>
#endif

using namespace ta::ui;
using namespace ta::test;

// What all items that draw themselves have in common.
class tst_DrawnItems : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void setters();
    void windows();
    void strangeSizes();
    void handlersThatDestroy();

private:
    QString itemsQml() const;
    QTemporaryDir m_folder;
};

namespace {

const QSize kItems(240, 140); // of itemsQml()
const QSize kWindow(240, 300);

// Null while there is nothing to grab.
QImage part(const Scene &scene, int top)
{
    const int ratio = int(scene.window()->effectiveDevicePixelRatio());
    return scene.window()->grabWindow().copy(QRect(QPoint(0, top) * ratio, kItems * ratio));
}

QImage upperPart(const Scene &scene)
{
    return part(scene, 0);
}

QImage lowerPart(const Scene &scene)
{
    return part(scene, kWindow.height() / 2);
}

// With the pictures of the thumbnails.
bool isComplete(const QImage &image)
{
    return isNear(pixelAt(image, QPointF(35, 115)), Qt::red);
}

// A value that the property does not have.
QVariant otherValue(const QObject *object, const QMetaProperty &property)
{
    if (qstrcmp(property.name(), "maximumValue") == 0)
        return -2.0; // moves the minimum and the value along
    const QVariant others[] = {
        2.0,
        2.0f,
        true,
        QColor(Qt::red),
        QStringLiteral("close"),
        QUrl::fromLocalFile(QStringLiteral("/nowhere.png")),
        QRect(1, 2, 3, 4),
        QEasingCurve(QEasingCurve::InQuad),
    };
    for (const QVariant &other : others) {
        if (other.userType() == property.userType())
            return other;
    }
    return property.isEnumType() ? property.enumerator().value(0)
                                 : property.read(object).toInt() + 1;
}

// What can be written of what Item has beyond Base.
template <typename Item, typename Base = QQuickItem>
QVector<QMetaProperty> ownProperties()
{
    QVector<QMetaProperty> properties;
    const QMetaObject &type = Item::staticMetaObject;
    for (int i = Base::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        if (type.property(i).isWritable())
            properties.append(type.property(i));
    }
    return properties;
}

// Each property is announced once and shows; where nothing changes nothing is drawn anew.
template <typename Item, typename Base = QQuickItem>
void changeProperties()
{
    Scene scene({});
    auto *item = new PaintProbe<Item>(scene.root());
    item->setSize(QSizeF(60, 40));
    SignalLog log;
    log.watch(item);
    for (const QMetaProperty &property : ownProperties<Item, Base>()) {
        const QVariant value = otherValue(item, property);
        for (bool isNew : { true, false }) {
            QVERIFY(scene.waitForFrame());
            item->paints = 0;
            property.write(item, value);
            QVERIFY(scene.waitForFrame());
            QVERIFY2((item->paints > 0) == isNew, property.name());
        }
        QCOMPARE(log.take(), QStringList(QLatin1String(property.notifySignal().name())));
    }
}

// Each property is changed while each signal destroys the item.
template <typename Item>
void destroyByHandlers()
{
    const QMetaObject &type = Item::staticMetaObject;
    QVector<QMetaProperty> properties = ownProperties<Item>();
    properties.append(type.property(type.indexOfProperty("width")));
    for (const QMetaProperty &property : qAsConst(properties)) {
        for (int i = 0; i < type.methodCount(); ++i) {
            const QMetaMethod signal = type.method(i);
            const bool isAnnounced = i == property.notifySignalIndex();
            if (signal.methodType() != QMetaMethod::Signal
                || !(isAnnounced || i >= QQuickItem::staticMetaObject.methodCount()))
                continue;
            const QPointer<QQuickItem> item = new Item;
            on(item, QString::fromLatin1(signal.name()), [&] { delete item; });
            property.write(item, otherValue(item, property));
            QVERIFY2(!item || !isAnnounced, property.name());
            delete item;
        }
    }
}

} // namespace

void tst_DrawnItems::initTestCase()
{
    Scene::useKit();
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(m_folder.filePath(QStringLiteral("red.png"))));
}

void tst_DrawnItems::setters()
{
    changeProperties<Border>();
    changeProperties<CheckerBoard>();
    changeProperties<Icon>();
    changeProperties<DefaultSlider, SliderBase>();
}

// One of each kind.
QString tst_DrawnItems::itemsQml() const
{
    return QStringLiteral(R"(
        UiBorder { x: 5; y: 5; width: 60; height: 40; borderWidth: 3 }
        UiBorder { x: 75; y: 5; width: 60; height: 40; style: UiBorder.Solid; color: 'red' }
        UiCheckerBoard { x: 145; y: 5; width: 60; height: 40 }
        UiIcon { x: 5; y: 55; iconName: 'add' }
        UiIcon { x: 35; y: 55; iconSize: UiIcon.Icon_32x32; iconName: 'locked'; disabled: 0.5 }
        UiDefaultSlider { x: 75; y: 55; antialiasing: true; valueBarVisible: true }
        UiThumbnail { x: 5; y: 95; width: 60; height: 40; source: '%1' }
        UiThumbnail { x: 75; y: 95; width: 60; height: 40; source: '%1'; enabled: false }
        UiThumbnail { x: 145; y: 95; width: 60; height: 40 }
    )")
        .arg(QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("red.png"))).toString());
}

// Items go from one window to another and back, and windows lose all that they have of graphics.
// Each may have a graphics context of its own.
void tst_DrawnItems::windows()
{
#if defined(__SANITIZE_ADDRESS__)
    // Each time a window is shown again, Qt forgets an offscreen surface that it makes on this
    // thread. The render thread's leaks are told all the same.
    const __lsan::ScopedDisabler qtForgets;
#endif
    const QString ground = QStringLiteral("Rectangle { anchors.fill: parent }");
    Scene first(ground, kWindow);
    Scene second(ground + QStringLiteral("Item { y: 150; %1 }").arg(itemsQml()), kWindow);
    const auto object = first.create(QStringLiteral("Item { %1 }").arg(itemsQml()));
    auto *items = qobject_cast<QQuickItem *>(object.get());
    items->setParentItem(first.root());
    QTRY_VERIFY(isComplete(upperPart(first)) && isComplete(lowerPart(second)));
    const QImage shown = upperPart(first);
    const QImage blank = upperPart(second);
    const QImage others = lowerPart(second);
    for (int round = 0; round < 2; ++round) {
        items->setParentItem(second.root());
        QTRY_COMPARE(upperPart(second), shown);
        QCOMPARE(upperPart(first), blank);
        items->setParentItem(first.root());
        QTRY_COMPARE(upperPart(first), shown);
        QCOMPARE(upperPart(second), blank);
    }

    QQuickWindow *window = first.window();
    window->setPersistentSceneGraph(false);
    window->setPersistentOpenGLContext(false);
    int invalidated = 0;
    QObject receiver; // on this thread
    connect(window, &QQuickWindow::sceneGraphInvalidated, &receiver, [&] { ++invalidated; });
    for (int round = 1; round <= 2; ++round) {
        window->hide();
        if (qEnvironmentVariable("QSG_RENDER_LOOP") == QLatin1String("threaded"))
            QTRY_COMPARE(invalidated, round); // the basic loop keeps it for the other window
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_COMPARE(upperPart(first), shown);
    }

    items->setParentItem(second.root());
    first.destroyWindow();
    QTRY_COMPARE(upperPart(second), shown);
    QCOMPARE(lowerPart(second), others);
}

// They draw nothing that could be relied on, but they harm nobody either.
void tst_DrawnItems::strangeSizes()
{
    Scene scene(QStringLiteral(R"(
        Rectangle { anchors.fill: parent }
        Item { %1 }
        Item {
            id: strange
            objectName: 'strange'
            property int most: 2147483647
            y: 150; width: 60; height: 60; clip: true
            UiBorder { borderWidth: strange.most; dashWidth: strange.most; gapWidth: strange.most }
            UiBorder { borderWidth: strange.most; style: UiBorder.Solid }
            UiDefaultSlider {
                trackHeight: strange.most; handleWidth: -strange.most; value: -Infinity
                handleOpacity: -1e30; valueBarOrigin: 1e30; valueBarVisible: true
            }
            %1
        }
    )")
                    .arg(itemsQml()),
                kWindow);
    QTRY_VERIFY(isComplete(upperPart(scene)));
    const QImage usual = upperPart(scene);
    const QList<QQuickItem *> items = scene.find("strange")->childItems();
    const double infinity = std::numeric_limits<double>::infinity();
    for (double extent : { 0.0, 0.9, -70.0, 1e9, 1e300, infinity, qQNaN() }) {
        for (double height : { 20.0, extent }) {
            for (QQuickItem *item : items)
                item->setSize(QSizeF(extent, height));
            QCOMPARE(upperPart(scene), usual);
        }
    }
    for (QQuickItem *item : items)
        item->setSize(QSizeF(60, 40));
    QVERIFY(scene.waitForFrame());
}

void tst_DrawnItems::handlersThatDestroy()
{
    destroyByHandlers<Border>();
    destroyByHandlers<CheckerBoard>();
    destroyByHandlers<Icon>();
    destroyByHandlers<Thumbnail>();
    destroyByHandlers<SliderBase>();
    destroyByHandlers<DefaultSlider>();
}

TAMBER_TEST_MAIN(tst_DrawnItems)
#include "tst_drawnitems.moc"
