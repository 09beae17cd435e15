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

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit HeldKeyFilter(int key);
    void end();

    const int m_key;
};

} // namespace ta::ui
