#pragma once

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class ButtonBasePrivate;

/*!
    The behaviour of a button whose look the host writes in QML: hover, press, click, keyboard.

    The left mouse button and the keys Return, Enter and Space press it. It draws nothing; the look
    follows \l hovered, \l pressed and \l down.

    QML: \c UiButtonBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT ButtonBase : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(bool hovered READ hovered NOTIFY hoveredChanged)
    Q_PROPERTY(bool pressed READ pressed NOTIFY pressedChanged)
    Q_PROPERTY(bool down READ isDown WRITE setDown NOTIFY downChanged)
    Q_PROPERTY(bool activeFocusOnPress READ activeFocusOnPress WRITE setActiveFocusOnPress NOTIFY
                   activeFocusOnPressChanged)
    Q_PROPERTY(bool stealEditFocus READ stealEditFocus WRITE setStealEditFocus NOTIFY
                   stealEditFocusChanged)

public:
    explicit ButtonBase(QQuickItem *parent = nullptr);
    ~ButtonBase() override;

    /// Whether the pointer is over the button.
    bool hovered() const;

    /// Whether a press is in progress; while the mouse is held, only as long as it is inside.
    bool pressed() const;

    /// Shows the button as pressed at the host's wish; input never changes it. False by default.
    bool isDown() const;
    void setDown(bool down);

    /// Whether a mouse press gives the button the active focus. False by default.
    bool activeFocusOnPress() const;
    void setActiveFocusOnPress(bool focus);

    /// Whether a mouse press takes the focus from an item that edits text, without taking it over.
    /// Looked at only where activeFocusOnPress is off. False by default.
    bool stealEditFocus() const;
    void setStealEditFocus(bool steal);

    /// Whether the button reacts to input at all. True by default; going to false ends hover and
    /// press.
    bool isInteractive() const;
    void setInteractive(bool interactive);

Q_SIGNALS:
    /// One activation. The second click of a double click is none.
    void clicked(Qt::KeyboardModifiers modifiers);
    void activeFocusOnPressChanged();
    void hoveredChanged();
    void pressedChanged();
    void downChanged();
    void stealEditFocusChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void focusOutEvent(QFocusEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void releaseResources() override;

private:
    friend class ButtonBasePrivate;
    const std::unique_ptr<ButtonBasePrivate> d;
};

} // namespace ta::ui
