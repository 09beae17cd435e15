#pragma once

#include "dialogbutton.h"
#include "ipopup.h"

#include "../foundation/export.h"

#include <QtCore/QPoint>
#include <QtCore/QVariant>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlListProperty>
#include <QtQml/QQmlParserStatus>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class DialogPrivate;

/*!
    A modal dialog: a header, a content and a footer with buttons, above everything else in the
    window.

    It is no item itself and costs little while it is closed. show() makes its items, above the
    window of the nearest item among its QObject ancestors, and the close takes them away again: the
    content is made anew each time. While it is on top of the PopupStack it keeps all input from
    what lies outside of it, in all windows of the application, and Tab stays inside. When it
    closes, the focus goes back to the item that had it before.

    The header, the content and the footer are components. The object made of each gets the dialog
    as the initial value of its property \c dialog, along with the values of headerOptions,
    contentOptions or footerOptions. Tab and Backtab go their usual way where the content item has
    a property \c disableTabOverride that is true.

    A dialog whose window is destroyed, or whose items somebody else destroys, is rejected. While
    its window is hidden it keeps nothing from the other windows.

    QML: \c UiDialog.
*/
class TAMBERUI_EXPORT Dialog
    : public QObject
    , public QQmlParserStatus
    , public IPopup
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus ta::ui::IPopup)

    Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(QString instructionText READ instructionText WRITE setInstructionText NOTIFY
                   instructionTextChanged)
    Q_PROPERTY(QVariant result READ result WRITE setResult NOTIFY resultChanged)
    Q_PROPERTY(int width READ width WRITE setWidth NOTIFY widthChanged)
    Q_PROPERTY(int height READ height WRITE setHeight NOTIFY heightChanged)
    Q_PROPERTY(bool autoSize READ autoSize WRITE setAutoSize NOTIFY autoSizeChanged)
    Q_PROPERTY(QPoint autoSizeMargins READ autoSizeMargins WRITE setAutoSizeMargins NOTIFY
                   autoSizeMarginsChanged)
    Q_PROPERTY(QQmlComponent *headerDelegate READ headerDelegate WRITE setHeaderDelegate NOTIFY
                   headerDelegateChanged)
    Q_PROPERTY(QQmlComponent *contentDelegate READ contentDelegate WRITE setContentDelegate NOTIFY
                   contentDelegateChanged)
    Q_PROPERTY(QQmlComponent *footerDelegate READ footerDelegate WRITE setFooterDelegate NOTIFY
                   footerDelegateChanged)
    Q_PROPERTY(QQmlComponent *footerControls READ footerControls WRITE setFooterControls NOTIFY
                   footerControlsChanged)
    Q_PROPERTY(QVariantMap headerOptions READ headerOptions WRITE setHeaderOptions)
    Q_PROPERTY(QVariantMap contentOptions READ contentOptions WRITE setContentOptions)
    Q_PROPERTY(QVariantMap footerOptions READ footerOptions WRITE setFooterOptions)
    Q_PROPERTY(QQuickItem *content READ content NOTIFY contentChanged)
    Q_PROPERTY(QQmlListProperty<ta::ui::DialogButton> buttons READ buttons NOTIFY buttonsChanged)
    Q_PROPERTY(ta::ui::DialogButton *defaultButton READ defaultButton WRITE setDefaultButton NOTIFY
                   defaultButtonChanged)
    Q_PROPERTY(Flags flags READ flags WRITE setFlags NOTIFY flagsChanged)
    Q_PROPERTY(bool busy READ isBusy WRITE setBusy NOTIFY busyChanged)

public:
    /// What closes the dialog besides its buttons. It is rejected then.
    enum Flag : int {
        NoFlag = 0,
        RejectOnEscape = 1,
        RejectOnClickOutside = 2,
        RejectOnCloseEvent = 4 ///< of any window
    };
    Q_DECLARE_FLAGS(Flags, Flag)
    Q_FLAG(Flags)

    explicit Dialog(QObject *parent = nullptr);
    /// A dialog that is shown closes, without accepted() or rejected().
    ~Dialog() override;

    /// The title in the default header; empty by default.
    QString label() const;
    void setLabel(const QString &label);

    /// A second line in the default header; empty by default.
    QString instructionText() const;
    void setInstructionText(const QString &text);

    /// What the default buttons pass to accept(); invalid by default. accept() does not change it.
    QVariant result() const;
    void setResult(const QVariant &result);

    /// The size in logical pixels, written when the dialog is shown and whenever it changes; 0 (the
    /// default) and less leave it to header, content and footer, at least 200 x 100.
    int width() const;
    void setWidth(int width);
    int height() const;
    void setHeight(int height);

    /// Whether the dialog is as large as its window less the margins. False by default.
    bool autoSize() const;
    void setAutoSize(bool autoSize);
    /// Kept free on the left and the right (x), above and below (y), in logical pixels; (0, 0) by
    /// default.
    QPoint autoSizeMargins() const;
    void setAutoSizeMargins(const QPoint &margins);

    /// Not owned. A null component leaves the part out. In QML the header and the footer are those
    /// of the library by default; there is no default content. Changes count from the next show().
    QQmlComponent *headerDelegate() const;
    void setHeaderDelegate(QQmlComponent *component);
    QQmlComponent *contentDelegate() const;
    void setContentDelegate(QQmlComponent *component);
    QQmlComponent *footerDelegate() const;
    void setFooterDelegate(QQmlComponent *component);
    /// What the default footer shows to the left of the buttons. Not owned; null by default.
    QQmlComponent *footerControls() const;
    void setFooterControls(QQmlComponent *component);

    /// Initial values for properties of the header, content and footer items; empty by default.
    QVariantMap headerOptions() const;
    void setHeaderOptions(const QVariantMap &options);
    QVariantMap contentOptions() const;
    void setContentOptions(const QVariantMap &options);
    QVariantMap footerOptions() const;
    void setFooterOptions(const QVariantMap &options);

    /// The content item while the dialog is shown, else null.
    QQuickItem *content() const;

    /// The buttons in their order from left to right. Not owned: one that is destroyed reads as
    /// null and counts for nothing.
    QQmlListProperty<DialogButton> buttons();

    /// The button that has the focus when the dialog opens and its content does not take it. Not
    /// owned; null by default.
    DialogButton *defaultButton() const;
    void setDefaultButton(DialogButton *button);

    /// RejectOnEscape and RejectOnCloseEvent by default. Without RejectOnEscape the key does
    /// nothing.
    Flags flags() const;
    void setFlags(Flags flags);

    /// Whether the default footer shows that work is going on. False by default.
    bool isBusy() const;
    void setBusy(bool busy);

    /// Does what a click on \a button does, for footers of a host's own. Nothing for null.
    Q_INVOKABLE void trigger(ta::ui::DialogButton *button);

    bool eventFilter(QObject *watched, QEvent *event) override;
    void classBegin() override;
    void componentComplete() override;
    QQuickItem *rootItem() const override;
    /// Always true: nothing behind a dialog moves by itself.
    bool preventAutoScroll() const override;

public Q_SLOTS:
    /// Opens the dialog, unless it is open; one whose item is in no window yet is seen as soon as
    /// it is in one. Where its items cannot be made it stays closed, and a critical message says
    /// why.
    void show();
    /// Close the dialog and emit rejected() or accepted(); nothing where it is closed.
    void reject();
    void accept(QVariant result);
    /// Emit previousPage() or nextPage() and leave the dialog open; nothing where it is closed.
    void back();
    void forward();

Q_SIGNALS:
    void labelChanged();
    void instructionTextChanged();
    void resultChanged();
    void widthChanged();
    void heightChanged();
    void autoSizeChanged();
    void autoSizeMarginsChanged();
    /// The dialog is on the screen, or fading in, and on the popup stack.
    void opened();
    /// The dialog has left the popup stack, and the focus is back where it was.
    void accepted(QVariant result);
    void rejected();
    void previousPage();
    void nextPage();
    void headerDelegateChanged();
    void contentDelegateChanged();
    void footerDelegateChanged();
    void footerControlsChanged();
    void buttonsChanged();
    void defaultButtonChanged();
    void flagsChanged();
    void busyChanged();
    void contentChanged();

private:
    friend class DialogPrivate;
    const std::unique_ptr<DialogPrivate> d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(Dialog::Flags)

} // namespace ta::ui
