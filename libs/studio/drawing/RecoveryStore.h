#pragma once

#include <studio/drawing/RecoverySlot.h>

#include <QtCore/QDateTime>
#include <QtCore/QVector>
#include <QtGui/QImage>

namespace studio {

/** A drawing that a studio left behind when it ended without saving it. */
struct RecoveryEntry
{
    std::shared_ptr<RecoverySlot> slot; ///< keeps the drawing for this studio
    RecoveryOrigin origin;
    QDateTime savedAt; ///< UTC
    int shapes = 0;
    QImage preview; ///< may be null

    /** Name for people: the file's, or a word for a drawing that has none. */
    QString name() const;
};

/** The folder of recovery files, which all studios of a user share. */
class RecoveryStore
{
public:
    explicit RecoveryStore(const QString &folder) : m_folderPath(folder) {}

    /** Where the studios of this user keep them. */
    static QString defaultFolder();

    QString folder() const { return m_folderPath; }

    /** What was found. */
    struct Findings
    {
        QVector<RecoveryEntry> entries; ///< the latest first
        QStringList damaged;            ///< paths of files that could not be read, as renamed
    };

    /**
     * Claims and checks what other studios left behind; those that run keep theirs. A damaged file
     * is renamed, and stays. One of a newer version, or one that may not be read, is left alone.
     */
    Findings find() const;

private:
    QString m_folderPath;
};

} // namespace studio
