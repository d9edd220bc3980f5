#include <studio/program/Icons.h>
#include <studio/program/UndoTexts.h>
#include <studio/window/CommandTable.h>

#include <QtCore/QSet>
#include <QtGui/QKeySequence>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using studio::Command;

class tst_CommandTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ids_areUnique()
    {
        QSet<QByteArray> ids;
        for (const Command &command : studio::commandTable()) {
            QVERIFY2(!ids.contains(QByteArray(command.id)), command.id);
            ids << QByteArray(command.id);
        }
    }

    void shortcuts_areValidAndUnique()
    {
        QSet<QString> taken;
        for (const Command &command : studio::commandTable()) {
            const QString text = QString::fromLatin1(command.shortcuts);
            if (text.isEmpty())
                continue;
            const auto keys = QKeySequence::listFromString(text);
            QVERIFY2(!keys.isEmpty(), command.id);
            for (const QKeySequence &key : keys) {
                QVERIFY2(!key.isEmpty() && key[0] != Qt::Key_unknown, command.id);
                QVERIFY2(!taken.contains(key.toString()), command.id);
                taken << key.toString();
            }
        }
        for (const char *standard :
             {"Ctrl+Z", "Ctrl+Y", "Ctrl+Shift+Z", "Del", "Ctrl+D", "Ctrl+A", "Ctrl+0",
              "Ctrl+=", "Ctrl++", "Ctrl+-", "Left", "Shift+Up", "Ctrl+Down", "Esc"})
            QVERIFY2(taken.contains(QString::fromLatin1(standard)), standard);
    }

    void icons_existAndShowSomething()
    {
        for (const Command &command : studio::commandTable()) {
            if (*command.icon == '\0')
                continue;
            const QIcon icon = studio::icon(command.icon);
            QVERIFY2(!icon.isNull(), command.icon);
            for (const int size : {16, 22, 48})
                QVERIFY2(inkOf(icon, size) > size, command.icon);
        }
        QVERIFY(inkOf(studio::programIcon(), 64) > 2000);
        QVERIFY(studio::icon("no such icon").isNull());
    }

    void icons_followThePalette()
    {
        const QIcon icon = studio::icon("rectangle");
        const QPalette before = QApplication::palette();
        QPalette dark = before;
        dark.setColor(QPalette::ButtonText, Qt::white);
        QApplication::setPalette(dark);
        QVERIFY(lightestOf(icon) > 200);
        QPalette light = before;
        light.setColor(QPalette::ButtonText, Qt::black);
        QApplication::setPalette(light);
        QVERIFY(lightestOf(icon) < 60);
        QApplication::setPalette(before);
    }

    void undoTexts_ofTheLibrary_becomeReadable()
    {
        QCOMPARE(studio::readableUndoText(QStringLiteral("release item setPos")),
                 QStringLiteral("Move"));
        QCOMPARE(studio::readableUndoText(QStringLiteral("item resize")), QStringLiteral("Resize"));
        QCOMPARE(studio::readableUndoText(QStringLiteral("item setPos")), QStringLiteral("Align"));
        QCOMPARE(studio::readableUndoText(QStringLiteral("Import a.plt")),
                 QStringLiteral("Import a.plt"));
        QCOMPARE(studio::readableUndoText(QStringLiteral("Property")),
                 QStringLiteral("Change property"));
        QCOMPARE(studio::readableUndoText(QString()), QString());
    }

    void undoTexts_takeTheirArguments()
    {
        QCOMPARE(studio::readableUndoText(studio::undoText("Mirror")), QStringLiteral("Mirror"));
        QCOMPARE(studio::readableUndoText(studio::undoText(
                     "Matrix of %1 by %2", {QStringLiteral("3"), QStringLiteral("40")})),
                 QStringLiteral("Matrix of 3 by 40"));
    }

private:
    /** Pixels that an icon paints. */
    static int inkOf(const QIcon &icon, int size)
    {
        const QImage image = icon.pixmap(size).toImage();
        int ink = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                ink += qAlpha(image.pixel(x, y)) > 40 ? 1 : 0;
        }
        return ink;
    }

    /** Lightest grey among the pixels that are fully painted. */
    static int lightestOf(const QIcon &icon)
    {
        const QImage image = icon.pixmap(96).toImage();
        int lightest = -1;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) == 255)
                    lightest = qMax(lightest, qGray(image.pixel(x, y)));
            }
        }
        return lightest;
    }
};

QTEST_MAIN(tst_CommandTable)
#include "tst_CommandTable.moc"
