#include <studio/drawing/DrawingSession.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtWidgets/QUndoStack>

namespace studio {

DrawingSession::DrawingSession(ZTGraphicsDocument &watched, QObject *parent)
    : QObject(parent), document(watched)
{
    const QUndoStack *stack = document.undoStack();
    connect(stack, &QUndoStack::indexChanged, this, &DrawingSession::noteChange);
    connect(stack, &QUndoStack::cleanChanged, this, &DrawingSession::stateChanged);
}

QString DrawingSession::name() const
{
    return filePath.isEmpty() ? tr("Unnamed") : QFileInfo(filePath).fileName();
}

bool DrawingSession::isModified() const { return isMarked || !document.undoStack()->isClean(); }

bool DrawingSession::isFileForeign() const
{
    const FileStamp now = FileStamp::of(filePath);
    return now.exists() && now != fileStamp;
}

bool DrawingSession::capture(bool withPreview, hostkit::DrawingFile *file,
                             hostkit::DrawingError *error) const
{
    hostkit::DrawingCapture wanted;
    wanted.programVersion = QCoreApplication::applicationVersion();
    wanted.withPreview = withPreview;
    wanted.unknown = unknownSections;
    return hostkit::captureDrawing(document, wanted, file, error);
}

void DrawingSession::markChanged()
{
    isMarked = true;
    noteChange();
    Q_EMIT stateChanged();
}

void DrawingSession::noteChange()
{
    ++changes;
    Q_EMIT changed();
}

void DrawingSession::startNew() { begin({}, {}, {}, false); }

void DrawingSession::setOpened(const QString &path, const FileStamp &stamp,
                               const QVector<hostkit::DrawingSection> &unknown)
{
    begin(path, stamp, unknown, false);
}

void DrawingSession::setRecovered(const QString &path, const FileStamp &stamp,
                                  const QVector<hostkit::DrawingSection> &unknown)
{
    begin(path, stamp, unknown, true);
}

void DrawingSession::setSaved(const QString &path, quint64 atRevision)
{
    begin(path, FileStamp::of(path), unknownSections, changes != atRevision);
}

void DrawingSession::begin(const QString &path, const FileStamp &stamp,
                           const QVector<hostkit::DrawingSection> &unknown, bool isBehind)
{
    filePath = path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
    fileStamp = stamp;
    unknownSections = unknown;
    isMarked = isBehind;
    document.undoStack()->setClean(); // counts only while nothing is marked
    Q_EMIT stateChanged();
}

} // namespace studio
