// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

class tst_GalleryDialogs : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void wizard();
};

// Filled in and accepted from the keyboard alone; what comes of it, and the focus, is on the page.
void tst_GalleryDialogs::form()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("dialogs") });
    QVERIFY(gallery.says(QStringLiteral("ready dialogs")));
    gallery.click(QStringLiteral("openFormButton"));
    QVERIFY(gallery.focuses("formName"));
    gallery.key("Return"); // not without a name
    gallery.key("l");
    gallery.key("o");
    gallery.key("Tab");
    QVERIFY(gallery.focuses("formPlace"));
    gallery.key("Down");
    gallery.key("Tab");
    QVERIFY(gallery.focuses("formNight"));
    gallery.key("space");
    gallery.key("Tab"); // past the footer's buttons and round
    gallery.key("Tab");
    gallery.key("Tab");
    QVERIFY(gallery.focuses("formName"));
    gallery.key("Return");
    QVERIFY(gallery.focuses("openFormButton"));
    QVERIFY(gallery.area(QStringLiteral("savedloCanteenoffatnight")).isValid());

    // Escape leaves everything as it is.
    gallery.key("space");
    QVERIFY(gallery.focuses("formName"));
    gallery.key("Escape");
    QVERIFY(gallery.focuses("openFormButton"));
    QVERIFY(gallery.area(QStringLiteral("savedloCanteenoffatnight")).isValid());
}

// Return goes on from page to page, and from the last one to the end.
void tst_GalleryDialogs::wizard()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("dialogs") });
    QVERIFY(gallery.says(QStringLiteral("ready dialogs")));
    gallery.click(QStringLiteral("openWizardButton"));
    for (const char *page : { "wizardPage1", "wizardPage2", "wizardPage3" }) {
        QVERIFY(gallery.area(QLatin1String(page)).isValid());
        gallery.key("Return");
    }
    QVERIFY(gallery.focuses("openWizardButton"));
}

TAMBER_TEST_MAIN(tst_GalleryDialogs)
#include "tst_gallerydialogs.moc"
