#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtTest/QtTest>

namespace ta::test {

/*!
    Base of every test class: a test function that provokes a warning, from the library, from Qt or
    from QML, fails, unless it said so before with expectWarning(); and one that expects a warning
    that does not come fails, too.
*/
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /// The next warnings that match \a pattern (a regular expression) are part of the test; at
    /// least one must come before the test function ends.
    static void expectWarning(const QString &pattern);

protected Q_SLOTS:
    // A test class with an init() or cleanup() of its own calls these.
    void init();
    void cleanup();
};

} // namespace ta::test

/// The main function of a test program: an application with a GUI, and Test's functions run in it.
#define TAMBER_TEST_MAIN(Test) QTEST_MAIN(Test)
