#include <studio/drawing/Autosaver.h>

#include <studio/drawing/DrawingSession.h>

#include <QtCore/QDir>
#include <QtCore/QThreadPool>

namespace studio {

namespace {

using hostkit::Failure;

Failure written(const hostkit::DrawingFile &drawing, const QString &path)
{
    Failure error;
    try {
        hostkit::writeDrawing(drawing, path, &error);
    } catch (...) {
        error.kind = Failure::Kind::CannotWrite; // no memory, not even for a reason
    }
    return error;
}

} // namespace

Autosaver::Autosaver(DrawingSession &watched, Messages &told, const QString &recoveryFolder,
                     int intervalMs, QObject *parent)
    : QObject(parent), m_session(watched), m_messages(told), m_folder(recoveryFolder)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(intervalMs);
    connect(&m_timer, &QTimer::timeout, this, &Autosaver::start);
    connect(&m_session, &DrawingSession::changed, this, &Autosaver::watch);
    connect(&m_session, &DrawingSession::stateChanged, this, &Autosaver::watch);
    watch();
}

Autosaver::~Autosaver()
{
    if (m_writing.valid())
        m_writing.wait();
}

QString Autosaver::recoveryPath() const
{
    return m_hasSaved && m_slot ? m_slot->path() : QString();
}

// The timer runs from the first change that is not saved yet, whatever follows.
void Autosaver::watch()
{
    if (!m_session.isModified()) {
        m_timer.stop();
        discard();
        return;
    }
    const bool isBehind = !m_hasSaved || m_session.revision() != m_savedRevision;
    if (isBehind && !m_timer.isActive() && !m_writing.valid())
        m_timer.start();
}

bool Autosaver::prepare(hostkit::DrawingFile *drawing)
{
    QString reason;
    if (!m_slot)
        m_slot = RecoverySlot::create(m_folder, &reason);
    if (!m_slot) {
        showFailureOnce(reason);
        return false;
    }
    Failure error;
    if (!m_session.capture(true, drawing, &error)) {
        showFailureOnce(error.reason);
        return false;
    }
    setOrigin({m_session.path(), m_session.stamp()}, drawing);
    m_writingRevision = m_session.revision();
    return true;
}

void Autosaver::start()
{
    hostkit::DrawingFile drawing;
    if (!prepare(&drawing)) {
        m_timer.start();
        return;
    }
    auto result = std::make_shared<std::promise<Failure>>();
    m_writing = result->get_future();
    QThreadPool::globalInstance()->start([this, result, drawing, path = m_slot->path()] {
        const Failure error = written(drawing, path);
        // This object waits for the result before it goes.
        QMetaObject::invokeMethod(this, &Autosaver::finish, Qt::QueuedConnection);
        result->set_value(error);
    });
}

void Autosaver::finish()
{
    if (m_writing.valid())
        take(m_writing.get());
}

void Autosaver::take(const Failure &error)
{
    if (error.kind == Failure::Kind::None) {
        m_savedRevision = m_writingRevision;
        m_hasSaved = true;
        m_hasTold = false;
        Q_EMIT autosaved();
    } else {
        showFailureOnce(error.reason);
    }
    watch();
}

void Autosaver::saveNow()
{
    finish();
    hostkit::DrawingFile drawing;
    const bool isBehind = !m_hasSaved || m_session.revision() != m_savedRevision;
    if (m_session.isModified() && isBehind && prepare(&drawing))
        take(written(drawing, m_slot->path()));
}

void Autosaver::adopt(std::shared_ptr<RecoverySlot> recovered)
{
    discard();
    m_slot = std::move(recovered);
    m_savedRevision = m_session.revision();
    m_hasSaved = true;
    m_timer.stop();
}

void Autosaver::discard()
{
    if (m_writing.valid()) {
        m_writing.wait();
        m_writing = {};
    }
    if (m_slot)
        m_slot->discard();
    m_slot.reset();
    m_hasSaved = false;
}

void Autosaver::showFailureOnce(const QString &reason)
{
    if (m_hasTold)
        return;
    m_hasTold = true;
    m_messages.warning({tr("The drawing is not protected against a crash."),
                        tr("Reason: %1. Save it yourself from time to time.").arg(reason),
                        {}});
}

} // namespace studio
