#include "TextWindow.h"

#include <studio/drawing/DrawingFiles.h>
#include <studio/job/JobPreview.h>
#include <studio/job/JobReport.h>
#include <studio/job/JobTools.h>
#include <studio/job/PlanPanel.h>
#include <studio/job/PlanView.h>

#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>

using studio::JobPreview;

/** What goes with a part into the archive. */
class tst_studio_jobReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        studio = std::make_unique<TextWindow>();
    }
    void cleanup() { studio.reset(); }

    void report_holdsMachineSizeAndTime()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        const std::shared_ptr<const studio::Job> job = preview()->plan().job();
        const QString text = studio::reportText(*job, QStringLiteral("a <b>.ztd"));
        for (const char *part :
             {"galvo-fiber", "10.000 x 10.000 mm", "0.08 s", "a &lt;b&gt;.ztd", "no values"})
            QVERIFY2(text.contains(QLatin1String(part)), qPrintable(text));
        QString error;
        QVERIFY(report(*job, "r.pdf", &error));
        QVERIFY(StudioWindow::contentOf(studio->path("r.pdf")).startsWith("%PDF"));
        QCOMPARE(pagesOf("r.pdf"), 1);
        QVERIFY(!report(*job, "no/r.pdf", &error));
        QVERIFY(!error.isEmpty());
    }

    // White letters of a dark theme would not be seen on paper.
    void report_isBlackOnWhite_inEveryTheme()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        const QPalette usual = QApplication::palette();
        QPalette bright = usual;
        for (const auto role : {QPalette::Text, QPalette::WindowText})
            bright.setColor(role, QColor(255, 0, 255));
        QApplication::setPalette(bright);
        QString error;
        const bool isSaved = report(*preview()->plan().job(), "r.pdf", &error);
        QApplication::setPalette(usual);
        QVERIFY2(isSaved, qPrintable(error));
        const QByteArray drawn = drawnOf("r.pdf");
        QVERIFY2(drawn.contains("BT"), "the text is written as text");
        QVERIFY2(!drawn.contains("1 0 1 scn"), "the colour of the screen");
        QVERIFY(drawn.contains("0 0 0 scn"));
    }

    void report_goesOverSeveralPages_whereMuchIsFound()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        studio::Job job = *preview()->plan().job();
        for (int i = 0; i < 300; ++i)
            job.findings.append(job.findings.first());
        QString error;
        QVERIFY2(report(job, "r.pdf", &error), qPrintable(error));
        QVERIFY(pagesOf("r.pdf") >= 4); // some sixty lines a page
    }

    void report_isNamedAfterTheDrawing_andBesideIt()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("plate 7.ztd")));
        QVERIFY(studio->run("job.preview"));
        QTest::mouseClick(planPanel().findChild<QPushButton *>(QStringLiteral("plan.report")),
                          Qt::LeftButton);
        auto *dialog = preview()->findChild<QFileDialog *>(QStringLiteral("reportDialog"));
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->selectedFiles(), QStringList{studio->path("plate 7.pdf")});
        dialog->reject();
    }

private:
    bool report(const studio::Job &job, const char *name, QString *error)
    {
        return studio::saveReport(job, QStringLiteral("plate.ztd"), preview()->plan(),
                                  studio->path(name), error);
    }

    int pagesOf(const char *name)
    {
        return StudioWindow::contentOf(studio->path(name)).count("/Type /Page\n");
    }

    /** What is drawn on the pages of a PDF: their streams, unpacked. */
    QByteArray drawnOf(const char *name)
    {
        const QByteArray pdf = StudioWindow::contentOf(studio->path(name));
        const QByteArray begin = "/Filter /FlateDecode\n>>\nstream\n";
        QByteArray drawn;
        int from = 0;
        while ((from = pdf.indexOf(begin, from)) >= 0) {
            from += begin.size();
            const int end = pdf.indexOf("endstream", from);
            // The length before it is a guess to begin with.
            drawn += qUncompress(QByteArray("\0\1\0\0", 4) + pdf.mid(from, end - from));
            from = end;
        }
        return drawn;
    }

    JobPreview *preview() { return &studio->window->editor().job().preview(); }
    studio::PlanPanel &planPanel() { return preview()->panel(); }

    std::unique_ptr<TextWindow> studio;
};

QTEST_MAIN(tst_studio_jobReport)
#include "tst_studio_jobReport.moc"
