#include "support/scene.h"

#include <TamberUi/Module>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtQml/QQmlComponent>
#include <QtTest/QtTest>

namespace ta::test {

namespace {

constexpr int kFrameTimeout = 5000; // ms

constexpr int kPatience = 20000; // ms, on a slow machine
bool s_kit = false;

QQuickItem *findItem(QQuickItem *item, const QString &objectName)
{
    if (item->objectName() == objectName)
        return item;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = findItem(child, objectName))
            return found;
    }
    return nullptr;
}

} // namespace

void Scene::useKit()
{
    s_kit = true;
}

QString Scene::imports()
{
    QString imports = QStringLiteral("import QtQuick 2.15\nimport QtQuick.Window 2.15\n");
    if (s_kit)
        imports += QLatin1String("import tamber.Ui 1.0\n");
    return imports + QLatin1String("import tamber.Ui.Private 1.0\n");
}

Scene::Scene(const QString &body, const QSize &size)
{
    if (!s_kit) {
        static const bool registered = (ta::ui::register_private(), true);
        Q_UNUSED(registered)
    }
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(size);

    const QString document = QStringLiteral("Item { anchors.fill: parent\n") + body
                             + QLatin1String("\n}");
    std::unique_ptr<QObject> object = create(document);
    auto *root = qobject_cast<QQuickItem *>(object.get());
    if (!root)
        qFatal("The QML of a scene is wrong, or its root is no item");
    object.release();
    root->setParent(m_window.get());
    root->setParentItem(m_window->contentItem());
    // A new window is activated without being asked for. Asking as well, a window manager takes the
    // focus away for a moment, some time after it gave it; a press is forgotten then.
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get(), kPatience)
        || !QTest::qWaitForWindowActive(m_window.get(), kPatience))
        qFatal("The window of a scene was not shown");
    m_root = root;
}

Scene::~Scene()
{
    destroyWindow();
}

std::unique_ptr<QObject> Scene::create(const QString &qml)
{
    QQmlComponent component(&m_engine);
    component.setData((imports() + qml).toUtf8(), QUrl(QStringLiteral("qrc:/scene.qml")));
    std::unique_ptr<QObject> object(component.create());
    if (!object)
        qWarning("%s", qPrintable(component.errorString()));
    return object;
}

void Scene::destroyWindow()
{
    m_window.reset();
}

bool Scene::waitForFrame()
{
    // Queued where it comes from a render thread, so that nothing of this function is used there.
    QEventLoop loop;
    QObject::connect(m_window.get(), &QQuickWindow::frameSwapped, &loop, [&] { loop.exit(true); });
    QTimer::singleShot(kFrameTimeout, &loop, [&] { loop.exit(false); });
    m_window->update();
    return loop.exec();
}

QObject *Scene::findObject(const QString &objectName) const
{
    if (!m_root)
        return nullptr;
    if (QObject *object = m_root->findChild<QObject *>(objectName))
        return object;
    return findItem(m_window->contentItem(), objectName);
}

} // namespace ta::test
