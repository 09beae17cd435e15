// A host that writes C++: the installed headers, library and modules are all it has.
#include <TamberUi/CheckButtonBase>
#include <TamberUi/Colors>
#include <TamberUi/Fonts>
#include <TamberUi/IMouseEventProxy>
#include <TamberUi/Logging>
#include <TamberUi/Module>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupBackground>
#include <TamberUi/PopupStack>
#include <TamberUi/PushButtonBase>
#include <TamberUi/ToolButtonBase>
#include <TamberUi/Ui>

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

#include <memory>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    ta::ui::register_private();
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15; import tamber.Ui.Private 1.0;"
                      "UiPushButtonBase { text: 'OK'; UiPopupAnchor { Item {} } }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    const auto *button = qobject_cast<ta::ui::PushButtonBase *>(object.get());
    const QColor color = ta::ui::Colors().getColor(ta::ui::Colors::FocusColor);
    engine.addImportPath(QStringLiteral(QML_DIR));
    QQmlComponent withKit(&engine);
    withKit.setData("import tamber.Ui 1.0; UiCheckBox {}", QUrl());
    const std::unique_ptr<QObject> box(withKit.create());
    const bool works = qobject_cast<ta::ui::CheckButtonBase *>(box.get()) && button
                       && button->text() == QLatin1String("OK") && color == QColor(0x8B, 0xC7, 0xD8)
                       && !ta::ui::PopupStack::top()
                       && !QImage(QStringLiteral(":/ui/images/checkmark.png")).isNull();
    qInfo("%s", works ? "works" : "fails");
    return works ? 0 : 1;
}
