#pragma once

#include "buttonbase.h"

namespace ta::ui {

class CheckButtonBasePrivate;

/*!
    A button with a state of three values that a click toggles.

    Checked becomes unchecked; unchecked and partially checked become checked.

    QML: \c UiCheckButtonBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT CheckButtonBase : public ButtonBase
{
    Q_OBJECT
    Q_PROPERTY(bool bindable READ isBindable WRITE setBindable NOTIFY bindableChanged)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly NOTIFY readOnlyChanged)
    Q_PROPERTY(bool checked READ isChecked WRITE setChecked NOTIFY checkedChanged)
    Q_PROPERTY(
        Qt::CheckState checkState READ checkState WRITE setCheckState NOTIFY checkStateChanged)

public:
    explicit CheckButtonBase(QQuickItem *parent = nullptr);
    ~CheckButtonBase() override;

    /// Whether a click leaves the state to the host, which writes it back through a binding. False
    /// by default.
    bool isBindable() const;
    void setBindable(bool bindable);

    /// Whether the button ignores all input. False by default.
    bool isReadOnly() const;
    void setReadOnly(bool readOnly);

    /// Whether the state is Qt::Checked. Writing makes it Qt::Checked or Qt::Unchecked.
    bool isChecked() const;
    void setChecked(bool checked);

    /// Qt::Unchecked by default. A change emits checkStateChanged(), then checkedChanged() if
    /// checked has changed with it.
    Qt::CheckState checkState() const;
    void setCheckState(Qt::CheckState state);

Q_SIGNALS:
    void readOnlyChanged();
    void bindableChanged();
    void checkedChanged();
    void checkStateChanged();

private Q_SLOTS:
    void handleClick();

private:
    friend class CheckButtonBasePrivate;
    const std::unique_ptr<CheckButtonBasePrivate> d;
};

} // namespace ta::ui
