#include <studio/job/JobReport.h>

#include <studio/job/PlanView.h>
#include <studio/program/Language.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDate>
#include <QtCore/QIODevice>
#include <QtCore/QLocale>
#include <QtCore/QUrl>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPdfWriter>
#include <QtGui/QScreen>
#include <QtGui/QTextDocument>

namespace studio {

namespace {

constexpr int kDpi = 150;
const QSize kPictureSize(1600, 1000);

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::JobReport)
};

QString number(double value, int decimals = 2) { return QLocale().toString(value, 'f', decimals); }

QString row(const QStringList &cells)
{
    QString html = QStringLiteral("<tr>");
    for (const QString &cell : cells)
        html +=
            QStringLiteral("<td style=\"padding-right:12px\">%1</td>").arg(cell.toHtmlEscaped());
    return html + QStringLiteral("</tr>");
}

QString table(const QString &title, const QStringList &rows)
{
    return QStringLiteral("<h3>%1</h3><table>%2</table>")
        .arg(title.toHtmlEscaped(), rows.join(QString()));
}

QString penTable(const Job &job)
{
    QStringList rows{row({Texts::tr("Pen"), Texts::tr("Name"), Texts::tr("mm/s"), Texts::tr("%"),
                          Texts::tr("kHz"), Texts::tr("Times"), Texts::tr("Seconds")})};
    for (const auto &used : job.times.byPen) {
        const jobkit::Pen pen = jobkit::penOf(job.request.pens, used.first, job.request.machine);
        rows << row({QString::number(pen.number), pen.name, QLocale().toString(pen.speedMmPerS),
                     QLocale().toString(pen.powerPercent), QLocale().toString(pen.frequencyKHz),
                     QString::number(pen.passes), number(used.second.totalS())});
    }
    return table(Texts::tr("Pens"), rows);
}

/** The width of the text on the page, in the pixels in which a text document counts pictures. */
int pictureWidth()
{
    constexpr double kTextWidthInch = 6.5; // of A4, within the document's own margins
    const QScreen *screen = QGuiApplication::primaryScreen();
    constexpr double kUsualDpi = 96.0;
    const double dpi = screen != nullptr ? screen->logicalDotsPerInchY() : kUsualDpi;
    return int(kTextWidthInch * dpi);
}

bool writePdf(const Job &job, const QString &drawing, const QImage &picture, QIODevice &device)
{
    QPdfWriter pdf(&device);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setResolution(kDpi);
    pdf.setTitle(drawing);
    QTextDocument text;
    text.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("plan")), picture);
    text.setHtml(QStringLiteral("<p><img src=\"plan\" width=\"%1\"></p>").arg(pictureWidth()) +
                 reportText(job, drawing));
    // Over as many pages as it takes, and in black, whatever the colours of the screen.
    text.print(&pdf);
    return device.pos() > 0;
}

} // namespace

QString reportText(const Job &job, const QString &drawing)
{
    const jobkit::MachineProfile &machine = job.request.machine;
    const QRectF box = job.plan.boundsMm();
    const jobkit::TimeSums &all = job.times.all;
    QStringList head;
    if (!drawing.isEmpty())
        head << row({Texts::tr("Drawing"), drawing});
    head << row(
        {Texts::tr("Date"), textLocale().toString(QDate::currentDate(), QLocale::LongFormat)});
    QString html = table(
        Texts::tr("Job"),
        head +
            QStringList{
                row({Texts::tr("Machine"), machine.name}),
                row({Texts::tr("Field"), Texts::tr("%1 x %2 mm")
                                             .arg(QLocale().toString(machine.fieldWidthMm),
                                                  QLocale().toString(machine.fieldHeightMm))}),
                row({Texts::tr("Size"),
                     Texts::tr("%1 x %2 mm").arg(number(box.width(), 3), number(box.height(), 3))}),
                row({Texts::tr("Time"), Texts::tr("%1 s (marking %2, jumps %3, delays %4)")
                                            .arg(number(all.totalS()), number(all.markS),
                                                 number(all.jumpS), number(all.delayS))})});
    html += penTable(job);
    QStringList findings;
    for (const jobkit::JobFinding &finding : job.findings)
        findings << row({finding.text});
    if (findings.isEmpty())
        findings << row({Texts::tr("Nothing speaks against this job.")});
    return html + table(Texts::tr("Checks"), findings);
}

bool saveReport(const Job &job, const QString &drawing, const PlanView &plan, const QString &path,
                QString *error)
{
    const QImage picture = plan.picture(kPictureSize);
    const bool isPicture = path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
    hostkit::Failure failure;
    const bool isSaved = hostkit::saveWhole(
        path,
        [&](QIODevice &device) {
            return isPicture ? picture.save(&device, "PNG")
                             : writePdf(job, drawing, picture, device);
        },
        &failure);
    if (!isSaved)
        *error = failure.reason;
    return isSaved;
}

} // namespace studio
