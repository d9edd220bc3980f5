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
    : QObject(parent), m_builder(std::make_unique<hostkit::MarkGraphBuilder>(
                           document, selectionOnly ? hostkit::selectedMarkedItems(document)
                                                   : hostkit::markedItems(document))),
      m_target(path), m_partPath(nameBeside(path)), m_objectCount(m_builder->total())
{
    m_nextStep.setInterval(0);
    connect(&m_nextStep, &QTimer::timeout, this, &ExportJob::gather);
}

ExportJob::~ExportJob()
{
    if (!m_writer)
        return;
    m_writer->wait();
    QFile::remove(m_partPath);
}

void ExportJob::start(int budgetMs)
{
    m_budgetOfStepMs = budgetMs;
    gather();
    if (m_builder)
        m_nextStep.start();
}

void ExportJob::cancel()
{
    m_isCancelled = true;
    m_nextStep.stop();
    if (!m_writer)
        deleteLater();
}

void ExportJob::gather()
{
    if (m_isCancelled || !m_builder)
        return;
    const bool isMore = m_builder->work(m_budgetOfStepMs);
    m_budgetOfStepMs = kStepMs;
    Q_EMIT progress(m_builder->done(), m_builder->total());
    if (!isMore && !m_isCancelled)
        write();
}

void ExportJob::write()
{
    m_nextStep.stop();
    m_marks = m_builder->take();
    m_builder.reset();
    if (!m_marks.isWhole())
        m_error = tr("a shape was deleted meanwhile");
    m_writer.reset(QThread::create([this] { writeFile(); }));
    connect(m_writer.get(), &QThread::finished, this, &ExportJob::finish);
    m_writer->start();
    Q_EMIT writing();
}

/** In the writing thread, which no exception may leave. */
void ExportJob::writeFile() noexcept
{
    if (!m_error.isEmpty())
        return;
    try {
        hostkit::saveMarkGraph(m_marks.graph, m_marks.units, m_partPath, &m_error);
    } catch (const std::bad_alloc &) {
        m_error = tr("there is not enough memory");
    } catch (...) {
        m_error = tr("it could not be made");
    }
}

void ExportJob::finish()
{
    if (m_isCancelled) {
        deleteLater();
        return;
    }
    if (m_error.isEmpty() && !replaceFile(m_partPath, m_target))
        m_error = tr("the file cannot be replaced");
    Q_EMIT finished(m_error);
}

} // namespace studio
