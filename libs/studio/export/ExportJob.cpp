#include <studio/export/ExportJob.h>

#include <hostkit/marks/MarkGraphWriter.h>

#include <new>

namespace studio {

namespace {

constexpr int kStepMs = 30;

} // namespace

ExportJob::ExportJob(const ZTGraphicsDocument &document, bool selectionOnly, const QString &path,
                     const hostkit::MarkPictureLook &pictureLook, QObject *parent)
    : QObject(parent), m_builder(std::make_unique<hostkit::MarkGraphBuilder>(
                           document, selectionOnly ? hostkit::selectedMarkedItems(document)
                                                   : hostkit::markedItems(document))),
      m_target(path), m_look(pictureLook), m_objectCount(m_builder->total())
{
    m_nextStep.setInterval(0);
    connect(&m_nextStep, &QTimer::timeout, this, &ExportJob::gather);
}

ExportJob::~ExportJob()
{
    m_isCancelled = true; // what is not finished is not wanted any more
    if (m_writer)
        m_writer->wait();
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
        fail(tr("a shape was deleted meanwhile"));
    m_writer.reset(QThread::create([this] { writeFile(); }));
    connect(m_writer.get(), &QThread::finished, this, &ExportJob::finish);
    m_writer->start();
    Q_EMIT writing();
}

/** In the writing thread, which no exception may leave. */
void ExportJob::writeFile() noexcept
{
    if (m_failure.kind != hostkit::Failure::Kind::None)
        return;
    try {
        hostkit::saveMarkGraph(m_marks.graph, m_marks.units, m_target, &m_failure, m_look,
                               [this] { return !m_isCancelled; });
    } catch (const std::bad_alloc &) {
        fail(tr("there is not enough memory"));
    } catch (...) {
        fail(tr("it could not be made"));
    }
}

void ExportJob::fail(const QString &reason)
{
    hostkit::fail(&m_failure, hostkit::Failure::Kind::NotPossible, reason);
}

void ExportJob::finish()
{
    if (m_isCancelled) {
        deleteLater();
        return;
    }
    Q_EMIT finished(m_failure.reason);
}

} // namespace studio
