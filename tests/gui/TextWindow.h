#pragma once

#include "StudioWindow.h"

#include "support/OwnFolder.h"
#include "support/TinyFonts.h"

#include <studio/commands/TextState.h>
#include <studio/text/InPlaceEditor.h>
#include <studio/text/TextDialog.h>
#include <studio/text/TextTools.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTabWidget>

/** The studio's window with the tiny stroke fonts, for a test that runs in its own folder. */
class TextWindow : public StudioWindow
{
public:
    TextWindow() { testsupport::makeTinyFonts(); }

    /** A text with its corner at a place on the scene, as the studio makes it, not being typed. */
    ZTGraphicsTextItem *addText(const QString &words, double xPx = 0.0, double yPx = 0.0)
    {
        edit().create(ShapeType::Text);
        key(editor(), Qt::Key_Escape);
        auto *item = static_cast<ZTGraphicsTextItem *>(studio::selectedShapeItems(scene()).first());
        item->setFixedText(words);
        item->setPos(xPx, yPx);
        stack().clear();
        return item;
    }

    QGraphicsScene &scene() { return *document().scene(); }

    /** The field that is being typed into, or null. */
    studio::InPlaceEditor *editor()
    {
        for (auto *field : view().viewport()->findChildren<studio::InPlaceEditor *>()) {
            if (field->isVisible())
                return field;
        }
        return nullptr;
    }

    void type(const char *words) { QTest::keyClicks(editor(), QString::fromUtf8(words)); }

    static void key(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(widget, key, modifiers);
        QCoreApplication::processEvents();
    }
    using StudioWindow::key;

    studio::TextDialog *dialog() { return window->findChild<studio::TextDialog *>(); }

    /** Opens the dialog of the selected text at one of its tabs. */
    bool openDialog(int tab)
    {
        if (!run("text.settings") || dialog() == nullptr || !dialog()->isVisible())
            return false;
        dialog()->findChild<QTabWidget *>(QStringLiteral("tabs"))->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        return true;
    }

    template <class Widget>
    Widget *box(const char *name)
    {
        return dialog()->findChild<Widget *>(QString::fromLatin1(name));
    }

    /** Enters a number as a user does. */
    void enter(const char *name, const char *number)
    {
        auto *field = box<QAbstractSpinBox>(name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(number));
        QCoreApplication::processEvents();
    }

    /** Presses a button or switches a box by the space bar. */
    void check(const char *name)
    {
        auto *button = box<QWidget>(name);
        button->setFocus();
        key(button, Qt::Key_Space);
    }

    void close(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog()->findChild<QDialogButtonBox *>()->button(button),
                          Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window->activateWindow(); // as a window manager does
        QCoreApplication::processEvents();
    }

    static QSizeF sizeMm(const ZTGraphicsTextItem &item)
    {
        return item.boundingRect().size() / ZTCoord::getInstance()->mm2pix(1.0);
    }

    /** Words that the tree shows for the first shape. */
    QString inTree() { return document().itemMag()->itemModel()->index(0, 1).data().toString(); }
};

#define COMPARE_MM(actual, expected)                                                               \
    QVERIFY2(qAbs((actual) - (expected)) < 1e-6,                                                   \
             qPrintable(QStringLiteral("%1 instead of %2").arg(actual, 0, 'g', 12).arg(expected)))

/** Runs a test class in a folder of its own, where the tiny fonts may stand beside the program. */
template <class Test>
int runTextTest(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}
