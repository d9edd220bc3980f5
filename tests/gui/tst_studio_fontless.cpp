#include "TextWindow.h"

#include <studio/export/Exporter.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobTools.h>

#include <QtWidgets/QMessageBox>

#include <memory>

using studio::JobExport;

/** A text whose font is not here is written when somebody says so. */
class tst_studio_fontless : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        studio = std::make_unique<TextWindow>();
    }
    void cleanup() { studio.reset(); }

    void job_isWrittenWhereTheUserSaysSo()
    {
        addWithoutFont();
        const JobExport wanted{studio->path("part.nc"), 1, false, {}};
        QVERIFY(
            !studio->window->editor().job().exporter().write(wanted, studio::JobSettings::load()));
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        QVERIFY(asked != nullptr);
        QCOMPARE(asked->informativeText(),
                 QStringLiteral("SN: its font is not here: No Such Font\n"
                                "Written as shown, texts are in another font, or left out."));
        QTest::keyClick(asked, Qt::Key_Return); // what is offered first writes nothing
        QVERIFY(!QFile::exists(wanted.path));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        JobExport asShown = wanted;
        asShown.isAsShown = true;
        QVERIFY(
            studio->window->editor().job().exporter().write(asShown, studio::JobSettings::load()));
        QVERIFY(QFile::exists(wanted.path));
    }

    void marks_areAskedAbout()
    {
        addWithoutFont();
        const QString path = studio->path("marks.json");
        studio->window->editor().exporter().exportTo(path, false);
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        QVERIFY(asked != nullptr);
        QCOMPARE(asked->informativeText(),
                 QStringLiteral("SN: its font is not here: No Such Font"));
        QTest::keyClick(asked, Qt::Key_Return);
        QVERIFY(!QFile::exists(path));
    }

private:
    void addWithoutFont()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("SN"));
        item->setFontType(FontType::doubleLine);
        item->setFont(QFont(QStringLiteral("No Such Font")));
    }

    std::unique_ptr<TextWindow> studio;
};

QTEST_MAIN(tst_studio_fontless)
#include "tst_studio_fontless.moc"
