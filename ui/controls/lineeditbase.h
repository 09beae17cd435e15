#pragma once

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class LineEditBasePrivate;

/*!
    The behaviour of a line of text that is edited, whose look the host writes in QML, the editing
    item included.

    What is typed lives in the editing item; \l text is what was committed. Losing the focus
    commits, Return and Enter end the edit and thereby commit, Escape goes back to the committed
    text and ends the edit. The line edit is a focus scope that hands its focus on to the editing
    item and, unless a press of the pointer brought it, selects the whole text.

    The editing item is a \c TextInput or any other item: its properties \c text, \c cursorPosition
    and \c acceptableInput and its method \c selectAll() are found by name, and where it lacks one,
    what needs that does nothing.

    QML: \c UiLineEditBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT LineEditBase : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QQuickItem *textInput READ textInput WRITE setTextInput NOTIFY textInputChanged)
    Q_PROPERTY(bool bindable READ isBindable WRITE setBindable NOTIFY bindableChanged)
    Q_PROPERTY(bool acceptableInput READ hasAcceptableInput NOTIFY acceptableInputChanged)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY emptyChanged)
    Q_PROPERTY(bool hovered READ hovered NOTIFY hoveredChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString placeHolderText READ placeHolderText WRITE setPlaceHolderText NOTIFY
                   placeHolderTextChanged)

public:
    explicit LineEditBase(QQuickItem *parent = nullptr);
    ~LineEditBase() override;

    /// The editing item, which may lie anywhere inside; null by default and once it is destroyed. A
    /// new one keeps the text that it has until \l text is written or it is committed; one that is
    /// replaced keeps what was typed. The line edit itself is refused with a warning.
    QQuickItem *textInput() const;
    void setTextInput(QQuickItem *item);

    /// Whether a commit is only reported, by updateRequested(), and left to the host to write.
    /// False by default.
    bool isBindable() const;
    void setBindable(bool bindable);

    /// What the editing item says of what is typed; false without one. It announces what it
    /// changes; that another editing item says something else is announced by textInputChanged()
    /// alone.
    bool hasAcceptableInput() const;

    /// Whether the committed text is empty, whatever is being typed.
    bool isEmpty() const;

    /// Whether the pointer is over the line edit.
    bool hovered() const;

    /// The committed text; empty by default. Writing it replaces what is being typed.
    QString text() const;
    void setText(const QString &text);

    /// What the host shows while there is no text; empty by default.
    QString placeHolderText() const;
    void setPlaceHolderText(const QString &text);

    /// What the editing item shows; empty without one.
    Q_INVOKABLE QString editText() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Selects all of the text of the editing item.
    void selectAll();

Q_SIGNALS:
    void textInputChanged();
    void bindableChanged();
    void emptyChanged();
    void hoveredChanged();
    void textChanged();
    void placeHolderTextChanged();
    /// An edit of a bindable line edit has ended; updateRequested() went ahead.
    void editingFinished();
    /// Return or Enter was pressed, and the edit is committed by now.
    void returnPressed();
    /// The user committed \a newValue in a bindable line edit, be it the text it has.
    void updateRequested(const QString &newValue);
    void acceptableInputChanged();

protected:
    void componentComplete() override;
    void focusInEvent(QFocusEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private Q_SLOTS:
    void updateCursorShape();

private:
    friend class LineEditBasePrivate;
    const std::unique_ptr<LineEditBasePrivate> d;
};

} // namespace ta::ui
