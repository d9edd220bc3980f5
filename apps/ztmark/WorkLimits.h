#pragma once

#include <hostkit/import/DrawingImport.h>
#include <hostkit/marks/MarkJob.h>

#include <QtCore/QCoreApplication>

/** Holds foreign drawings and what is asked of them against the limits, before they come in. */
class WorkLimits
{
    Q_DECLARE_TR_FUNCTIONS(WorkLimits)

public:
    /** Adds a drawing; why it is too much work, empty when it is not. */
    QString add(const vectorkit::VectorDrawing &drawing, const hostkit::ImportOptions &import,
                const hostkit::MarkJobOptions &layout);

    /** Adds shapes that came in. */
    void addObjects(int count) { m_objects += count; }

    /** Why so many copies of all drawings are too much work, empty when they are not. */
    QString checkCopies(const hostkit::MarkJobOptions &layout) const;

private:
    double m_objects = 0.0;
    double m_pieces = 0.0; ///< points and about how many hatch segments
};
