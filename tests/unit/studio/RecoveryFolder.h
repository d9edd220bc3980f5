#pragma once

#include <studio/drawing/RecoverySlot.h>

#include <QtCore/QDir>
#include <QtTest/QTest>

/** A folder of recovery files, as studios that died left them behind. */
class RecoveryFolder
{
public:
    explicit RecoveryFolder(const QString &folder) : path(folder) {}

    /** Leaves a drawing behind; path of its file. */
    QString leave(const studio::RecoveryOrigin &origin, const QDateTime &savedAt,
                  hostkit::DrawingFile drawing) const
    {
        QString error;
        const auto slot = studio::RecoverySlot::create(path, &error);
        drawing.meta.savedAt = savedAt;
        studio::setOrigin(origin, &drawing);
        hostkit::Failure why;
        if (!slot || !hostkit::writeDrawing(drawing, slot->path(), &why))
            qFatal("a recovery file cannot be written");
        return slot->path();
    }

    /** Names of the files in it that match. */
    QStringList names(const char *pattern) const
    {
        return QDir(path).entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
    }

    const QString path;
};
