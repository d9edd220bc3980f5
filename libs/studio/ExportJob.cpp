#include <studio/ExportJob.h>

#include <hostkit/marks/MarkGraphWriter.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>

#include <cstdio>
#include <new>

namespace studio {

namespace {

constexpr int kStepMs = 30;

/** A name beside the target, of the same form, that no file has. */
QString nameBeside(const QString &path)
{
    const QFileInfo info(path);
    return QStringLiteral("%1/.%2-%3.%4")
        .arg(info.path(), info.completeBaseName(), QUuid::createUuid().toString(QUuid::Id128),
             info.suffix());
}

/** Moves a file over another one in one step. */
bool replaceFile(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

ExportJob::ExportJob(const ZTGraphicsDocument &document, bool selectionOnly, const QString &path,
                     QObject *parent)
    : QObject(parent), builder(std::make_unique<hostkit::MarkGraphBuilder>(
                           document, selectionOnly ? hostkit::selectedMarkedItems(document)
                                                   : hostkit::markedItems(document))),
      target(path), partPath(nameBeside(path)), objectCount(builder->total())
{
    nextStep.setInterval(0);
    connect(&nextStep, &QTimer::timeout, this, &ExportJob::gather);
}

ExportJob::~ExportJob()
{
    if (!writer)
        return;
    writer->wait();
    QFile::remove(partPath);
}

void ExportJob::start(int budgetMs)
{
    budgetOfStepMs = budgetMs;
    gather();
    if (builder)
        nextStep.start();
}

void ExportJob::cancel()
{
    isCancelled = true;
    nextStep.stop();
    if (!writer)
        deleteLater();
}

void ExportJob::gather()
{
    if (isCancelled || !builder)
        return;
    const bool isMore = builder->work(budgetOfStepMs);
    budgetOfStepMs = kStepMs;
    Q_EMIT progress(builder->done(), builder->total());
    if (!isMore && !isCancelled)
        write();
}

void ExportJob::write()
{
    nextStep.stop();
    marks = builder->take();
    builder.reset();
    if (!marks.isWhole())
        error = tr("a shape was deleted meanwhile");
    writer.reset(QThread::create([this] { writeFile(); }));
    connect(writer.get(), &QThread::finished, this, &ExportJob::finish);
    writer->start();
    Q_EMIT writing();
}

/** In the writing thread, which no exception may leave. */
void ExportJob::writeFile() noexcept
{
    if (!error.isEmpty())
        return;
    try {
        hostkit::saveMarkGraph(marks.graph, marks.units, partPath, &error);
    } catch (const std::bad_alloc &) {
        error = tr("there is not enough memory");
    } catch (...) {
        error = tr("it could not be made");
    }
}

void ExportJob::finish()
{
    if (isCancelled) {
        deleteLater();
        return;
    }
    if (error.isEmpty() && !replaceFile(partPath, target))
        error = tr("the file cannot be replaced");
    Q_EMIT finished(error);
}

} // namespace studio
