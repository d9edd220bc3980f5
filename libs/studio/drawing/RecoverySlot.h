#pragma once

#include <studio/drawing/FileStamp.h>

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QLockFile>

#include <memory>

namespace studio {

/** Where a recovered drawing belongs. */
struct RecoveryOrigin
{
    QString path;    ///< file of the drawing; empty for one that was never saved
    FileStamp stamp; ///< what that file looked like to the studio that worked on it
};

/**
 * A recovery file, and the lock that says that a running studio looks after it. The lock goes with
 * this, the file stays until it is discarded.
 */
class RecoverySlot
{
public:
    /** A new one in a folder, which is made. Failure: null with the reason. */
    static std::unique_ptr<RecoverySlot> create(const QString &folder, QString *error);

    /** One that a studio left behind. Failure: null while that studio, or another one, has it. */
    static std::unique_ptr<RecoverySlot> claim(const QString &filePath);

    QString path() const { return m_filePath; }

    /** Removes the file and the lock. The last use of a slot. */
    void discard();

    /** Renames the file, so that it is offered no more; its new path, empty if that failed. */
    QString setAside();

private:
    explicit RecoverySlot(const QString &path);

    QString m_filePath;
    QLockFile m_lock;
};

/** Notes the origin in a drawing that is about to become a recovery file. */
void setOrigin(const RecoveryOrigin &origin, hostkit::DrawingFile *drawing);

/** The origin of the drawing in a recovery file; an empty one if there is none. */
RecoveryOrigin originOf(const hostkit::DrawingFile &drawing);

} // namespace studio
