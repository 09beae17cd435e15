#pragma once

#include <QtCore/QObject>

namespace ta::ui {

/*!
    Swallows what is left of a key press: its repetitions and its release.

    For whoever moves the focus while a key is down, to where the rest of it would mean something: a
    button, for instance, is clicked by the mere release of Return.
*/
class HeldKeyFilter : public QObject
{
public:
    /// Any other input of the user ends it, too.
    static void swallowRest(int key);

    /// Swallows the rest of all keys that are down now, whichever they are, until one of them or a
    /// mouse button goes down anew. Its owner may destroy it before that.
    explicit HeldKeyFilter(QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    HeldKeyFilter(int key, QObject *parent);
    void end();

    const int m_key; // 0 for all
};

} // namespace ta::ui
