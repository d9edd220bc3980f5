#include <studio/ExportJob.h>

#include <hostkit/marks/MarkGraphWriter.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>

#include <cstdio>

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

ExportJob::ExportJob(ZTShapeManager &manager, bool selectionOnly, const QString &path,
                     QObject *parent)
    : QObject(parent), builder(std::make_unique<MarkGraphBuilder>(manager, selectionOnly)),
      target(path), partPath(nameBeside(path)), units(hostkit::MarkUnits::current()),
      objectCount(builder->total())
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
    if (isCancelled || writer)
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
    graph = builder->takeSorted();
    builder.reset();
    writer.reset(
        QThread::create([this] { hostkit::saveMarkGraph(graph, units, partPath, &error); }));
    connect(writer.get(), &QThread::finished, this, &ExportJob::finish);
    writer->start();
    Q_EMIT writing();
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
