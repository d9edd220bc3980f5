#pragma once

#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/marks/MarkPathMeasure.h>

#include <QtCore/QCoreApplication>

#include <optional>
#include <string>

class Progress;

/** Mark paths of a drawing, in the units of its mark scale. */
struct DrawingMarks
{
    ZTMarkGraph graph;
    hostkit::MarkUnits units;
    hostkit::MarkPathMeasure before; ///< as the shapes lie, the topmost one first
    hostkit::MarkPathMeasure after;  ///< in the order asked for

    /** Whether everything that the shapes mark is still there after the ordering. */
    bool isWhole() const;
};

/** A drawing file, opened without a window: its field set-up is that of the process. */
class OpenedDrawing
{
    Q_DECLARE_TR_FUNCTIONS(OpenedDrawing)

public:
    /**
     * Whether the name is that of a drawing: by its extension, or by the first bytes of an ordinary
     * file. Standard input never is.
     */
    static bool isNamed(const std::string &name);

    /** Why a drawing was not read, loaded or written, to follow its name. */
    static QString describe(const hostkit::Failure &error);

    /** False, told on stderr, when it cannot be read or loaded. Warns of missing fonts. */
    bool open(const std::string &name, Progress &progress);

    /** Mark paths as `ZTShapeManager::getShapeLines` gives them; without `order` in its own. */
    DrawingMarks marks(std::optional<EShapeSortType> order);

    /** The shapes, the topmost one first. */
    QVector<ZTAbstractGraphicsItem *> items() const;

    hostkit::DrawingFile file;
    hostkit::DrawingReport report;
    ZTGraphicsDocument document;

private:
    void warnOfUnknownKinds(const std::string &name) const;
};
