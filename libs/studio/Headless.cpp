#include <studio/Headless.h>

#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecoveryStore.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtGui/QPixmap>

#include <cstdio>

namespace studio {

namespace {

const QSize kWindowSize(1400, 900);
constexpr int kSettlingMs = 150;

/** Texts of this file for the catalogue. */
struct Headless
{
    Q_DECLARE_TR_FUNCTIONS(studio::Headless)
};

void complain(const QString &path, const QString &what)
{
    std::fprintf(stderr, "ztstudio: %s: %s\n", qUtf8Printable(path), qUtf8Printable(what));
}

int fail(const QString &path, const QString &why)
{
    complain(path, why);
    return 1;
}

void tell(const char *what, const QString &path)
{
    std::printf("%-10s %s\n", what, qUtf8Printable(QDir::toNativeSeparators(path)));
}

/** Fills the document; false if nothing came in, which a message has told. */
bool draw(MainWindow &window, const QString &path)
{
    if (path.isEmpty()) {
        window.addSample();
        return true;
    }
    if (!window.editor().openFiles({path}))
        return false;
    window.fitAll();
    return true;
}

bool renderWindow(MainWindow &window, const QString &path)
{
    // The status bar gathers changes for a moment before it shows them.
    QEventLoop settling;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &settling, &QEventLoop::quit);
    timer.start(kSettlingMs);
    settling.exec();
    return window.grab().save(path, "PNG");
}

/** Beside a drawing's marks nothing is told that is as it should be. */
void warnOf(const hostkit::MarkFindings &findings, const QString &drawing)
{
    for (const QString &sentence : hostkit::describeFindings(findings))
        complain(drawing, Headless::tr("warning: %1").arg(sentence));
}

int writeMarks(const MainWindow &window, const HeadlessJob &job, const QString &base)
{
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(window.document());
    const QString drawing =
        job.drawingPath.isEmpty() ? Headless::tr("sample drawing") : job.drawingPath;
    warnOf(marks.findings, drawing);
    if (!marks.findings.outside.isEmpty() && !job.marksOutside)
        return fail(drawing, Headless::tr("no mark data: shapes outside the work area are written "
                                          "with --outside alone"));
    if (!marks.findings.notReady.isEmpty() && !job.marksAsShown)
        return fail(drawing, Headless::tr("no mark data: shapes that do not show what they were "
                                          "given are written with --as-shown alone"));
    for (const auto &extension : {QStringLiteral(".svg"), QStringLiteral(".json")}) {
        hostkit::Failure failure;
        const QString path = base + extension;
        if (!hostkit::saveMarkGraph(marks.graph, marks.units, path, &failure))
            return fail(path, failure.reason);
        tell("Mark data:", path);
    }
    return 0;
}

} // namespace

int runHeadless(MainWindow &window, const HeadlessJob &job)
{
    if (!QDir().mkpath(job.outFolder))
        return fail(job.outFolder, Headless::tr("the folder cannot be made"));
    window.resize(kWindowSize);
    window.show();
    QCoreApplication::processEvents();
    if (!draw(window, job.drawingPath))
        return 1;

    const QString name = job.drawingPath.isEmpty() ? QStringLiteral("sample")
                                                   : QFileInfo(job.drawingPath).completeBaseName();
    const QString base = QDir(job.outFolder).filePath(name);
    const QString picture = base + QStringLiteral("-window.png");
    if (!renderWindow(window, picture))
        return fail(picture, Headless::tr("cannot be written"));
    tell("Window:", picture);

    return writeMarks(window, job, base);
}

int listRecovery(const QString &folder)
{
    const RecoveryStore::Findings found = RecoveryStore(folder).find();
    for (const RecoveryEntry &entry : found.entries)
        std::printf("%s\t%s\t%d\t%s\n", qUtf8Printable(entry.name()),
                    qUtf8Printable(entry.savedAt.toString(Qt::ISODate)), entry.shapes,
                    qUtf8Printable(QDir::toNativeSeparators(entry.slot->path())));
    if (found.damaged.isEmpty())
        return 0;
    ConsoleMessages().failure(recoveryDamaged(found.damaged));
    return 1;
}

} // namespace studio
