#include <studio/drawing/DrawingSession.h>

#include <hostkit/drawing/DrawingCapture.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtWidgets/QUndoStack>

namespace studio {

DrawingSession::DrawingSession(ZTGraphicsDocument &watched, QObject *parent)
    : QObject(parent), m_document(watched)
{
    const QUndoStack *stack = m_document.undoStack();
    connect(stack, &QUndoStack::indexChanged, this, &DrawingSession::noteChange);
    connect(stack, &QUndoStack::cleanChanged, this, &DrawingSession::stateChanged);
}

QString DrawingSession::name() const
{
    return m_filePath.isEmpty() ? tr("Unnamed") : QFileInfo(m_filePath).fileName();
}

bool DrawingSession::isModified() const { return m_isMarked || !m_document.undoStack()->isClean(); }

bool DrawingSession::isFileForeign() const
{
    const FileStamp now = FileStamp::of(m_filePath);
    return now.exists() && now != m_fileStamp;
}

bool DrawingSession::capture(bool withPreview, hostkit::DrawingFile *file,
                             hostkit::Failure *error) const
{
    hostkit::DrawingCapture wanted;
    wanted.programVersion = QCoreApplication::applicationVersion();
    wanted.withPreview = withPreview;
    return hostkit::captureDrawing(m_document, wanted, file, error);
}

void DrawingSession::markChanged()
{
    m_isMarked = true;
    noteChange();
    Q_EMIT stateChanged();
}

void DrawingSession::noteChange()
{
    ++m_changes;
    Q_EMIT changed();
}

void DrawingSession::startNew() { begin({}, {}, false); }

void DrawingSession::setOpened(const QString &path, const FileStamp &stamp)
{
    begin(path, stamp, false);
}

void DrawingSession::setRecovered(const QString &path, const FileStamp &stamp)
{
    begin(path, stamp, true);
}

void DrawingSession::setSaved(const QString &path, quint64 atRevision)
{
    begin(path, FileStamp::of(path), m_changes != atRevision);
}

void DrawingSession::begin(const QString &path, const FileStamp &stamp, bool isBehind)
{
    m_filePath = path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
    m_fileStamp = stamp;
    m_isMarked = isBehind;
    m_document.undoStack()->setClean(); // counts only while nothing is marked
    Q_EMIT stateChanged();
}

} // namespace studio
