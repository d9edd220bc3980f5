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
    : QObject(parent), session(watched), messages(told), folder(recoveryFolder)
{
    timer.setSingleShot(true);
    timer.setInterval(intervalMs);
    connect(&timer, &QTimer::timeout, this, &Autosaver::start);
    connect(&session, &DrawingSession::changed, this, &Autosaver::watch);
    connect(&session, &DrawingSession::stateChanged, this, &Autosaver::watch);
    watch();
}

Autosaver::~Autosaver()
{
    if (writing.valid())
        writing.wait();
}

QString Autosaver::recoveryPath() const { return hasSaved && slot ? slot->path() : QString(); }

// The timer runs from the first change that is not saved yet, whatever follows.
void Autosaver::watch()
{
    if (!session.isModified()) {
        timer.stop();
        discard();
        return;
    }
    const bool isBehind = !hasSaved || session.revision() != savedRevision;
    if (isBehind && !timer.isActive() && !writing.valid())
        timer.start();
}

bool Autosaver::prepare(hostkit::DrawingFile *drawing)
{
    QString reason;
    if (!slot)
        slot = RecoverySlot::create(folder, &reason);
    if (!slot) {
        tellOnce(reason);
        return false;
    }
    Failure error;
    if (!session.capture(true, drawing, &error)) {
        tellOnce(error.reason);
        return false;
    }
    setOrigin({session.path(), session.stamp()}, drawing);
    writingRevision = session.revision();
    return true;
}

void Autosaver::start()
{
    hostkit::DrawingFile drawing;
    if (!prepare(&drawing)) {
        timer.start();
        return;
    }
    auto result = std::make_shared<std::promise<Failure>>();
    writing = result->get_future();
    QThreadPool::globalInstance()->start([this, result, drawing, path = slot->path()] {
        const Failure error = written(drawing, path);
        // This object waits for the result before it goes.
        QMetaObject::invokeMethod(this, &Autosaver::finish, Qt::QueuedConnection);
        result->set_value(error);
    });
}

void Autosaver::finish()
{
    if (writing.valid())
        take(writing.get());
}

void Autosaver::take(const Failure &error)
{
    if (error.kind == Failure::Kind::None) {
        savedRevision = writingRevision;
        hasSaved = true;
        hasTold = false;
        Q_EMIT autosaved();
    } else {
        tellOnce(error.reason);
    }
    watch();
}

void Autosaver::saveNow()
{
    finish();
    hostkit::DrawingFile drawing;
    const bool isBehind = !hasSaved || session.revision() != savedRevision;
    if (session.isModified() && isBehind && prepare(&drawing))
        take(written(drawing, slot->path()));
}

void Autosaver::adopt(std::shared_ptr<RecoverySlot> recovered)
{
    discard();
    slot = std::move(recovered);
    savedRevision = session.revision();
    hasSaved = true;
    timer.stop();
}

void Autosaver::discard()
{
    if (writing.valid()) {
        writing.wait();
        writing = {};
    }
    if (slot)
        slot->discard();
    slot.reset();
    hasSaved = false;
}

void Autosaver::tellOnce(const QString &reason)
{
    if (hasTold)
        return;
    hasTold = true;
    messages.warning({tr("The drawing is not protected against a crash."),
                      tr("Reason: %1. Save it yourself from time to time.").arg(reason),
                      {}});
}

} // namespace studio
