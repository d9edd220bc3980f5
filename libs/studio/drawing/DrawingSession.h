#pragma once

#include <studio/drawing/FileStamp.h>

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QObject>

class ZTGraphicsDocument;

namespace studio {

/**
 * What a window knows about the drawing in it beside the drawing itself: the file it stands in, and
 * whether that file is behind.
 *
 * Steps of the undo stack are noticed; every other change has to be told by markChanged().
 */
class DrawingSession : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit DrawingSession(ZTGraphicsDocument &document, QObject *parent = nullptr);

    /** File of the drawing, absolute; empty for one that was never saved. */
    QString path() const { return m_filePath; }

    /** Name for people: the file's, or a word for a drawing that has none. */
    QString name() const;

    /** Whether there is something to lose. */
    bool isModified() const;

    /** Grows with every change. */
    quint64 revision() const { return m_changes; }

    /** What the file looked like when it was read or written last. */
    const FileStamp &stamp() const { return m_fileStamp; }

    /** Whether someone else wrote the file since. One that is gone has nothing to lose. */
    bool isFileForeign() const;

    /** Takes the drawing out of the document, with all that came with its file. */
    bool capture(bool withPreview, hostkit::DrawingFile *file, hostkit::Failure *error) const;

    /** A change that is no step of the undo stack. */
    void markChanged();

    // The steps in a drawing's life, each told after it was done.

    void startNew(); ///< the document was emptied
    void setOpened(const QString &path, const FileStamp &stamp);

    /** The file holds the drawing as it was at a revision; what changed since is still unsaved. */
    void setSaved(const QString &path, quint64 atRevision);

    /** As setOpened(), but the file lacks what was recovered; `path` may be empty. */
    void setRecovered(const QString &path, const FileStamp &stamp);

Q_SIGNALS:
    void stateChanged(); ///< path or modified mark
    void changed();      ///< the revision grew

private:
    void begin(const QString &path, const FileStamp &stamp, bool isBehind);
    void noteChange();

    ZTGraphicsDocument &m_document;
    QString m_filePath;
    FileStamp m_fileStamp;
    bool m_isMarked = false; ///< changed beside the undo stack
    quint64 m_changes = 0;
};

} // namespace studio
