// A host with a kind of shape of its own: drawn, hatched, changed, undone, repeated, saved, loaded
// and exported, each by the means that serve the library's kinds.

#include "SlotItem.h"

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <cmath>
#include <cstdlib>

namespace {

/** What a polygon encloses. */
double area(const QPolygonF &polygon)
{
    double doubled = 0.0;
    for (int i = 0; i < polygon.size(); ++i) {
        const QPointF next = polygon[(i + 1) % polygon.size()];
        doubled += polygon[i].x() * next.y() - next.x() * polygon[i].y();
    }
    return std::abs(doubled) / 2.0;
}

/** Tells each marked shape: the area of its outline in square millimetres, and whether hatched. */
void tell(const char *when, const ZTGraphicsDocument &document)
{
    QTextStream out(stdout);
    out << when << ':';
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(document);
    const double mm2 = marks.units.perMm * marks.units.perMm;
    for (const ZTMarkObject &object : marks.graph.objects) {
        for (const QPolygonF &outline : object.lines)
            out << ' ' << std::lround(area(outline) / mm2) << " mm2";
        out << (object.fillLines.isEmpty() ? "" : " hatched");
    }
    out << '\n';
}

[[noreturn]] void end(const QString &reason)
{
    QTextStream(stderr) << reason << '\n';
    std::exit(1);
}

/** A slot whose corners are changed as a row of the property grid would, and undone. */
void draw(ZTGraphicsDocument &document)
{
    ZTAbstractGraphicsItem *slot =
        document.itemMag()->addShape(ShapeType::Point, QRectF(0, 0, 10, 10));
    tell("drawn", document);
    slot->setFillParam({FillType::Line, 2.0, 0.0, true});
    tell("hatched", document);
    document.undoStack()->push(new ZTItemPropertyCommand(slot, QStringLiteral("radius"), 4.0));
    tell("changed", document);
    document.undoStack()->undo();
    tell("undone", document);
    document.undoStack()->redo();
    slot->setSelected(true);
    document.itemMag()->addMatrix(1, 2, 0.0, 0.0);
    tell("repeated", document);
}

void save(ZTGraphicsDocument &document, const QString &path)
{
    hostkit::Failure failure;
    if (!hostkit::saveDrawing(document, {}, path, &failure))
        end(failure.reason);
}

void load(const QString &path, ZTGraphicsDocument &document)
{
    hostkit::DrawingFile drawing;
    hostkit::DrawingReport report;
    hostkit::Failure failure;
    if (!hostkit::readDrawing(path, &drawing, &failure) ||
        !hostkit::applyDrawing(drawing, document, {}, &report, &failure))
        end(failure.reason);
    if (!report.unknownKinds.isEmpty())
        end(QStringLiteral("the kind is not known"));
}

void exportMarks(const ZTGraphicsDocument &document, const QString &path)
{
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(document);
    hostkit::Failure failure;
    if (!hostkit::saveMarkGraph(marks.graph, marks.units, path, &failure))
        end(failure.reason);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    SlotItemFactory::registerKind();
    hostkit::registerFactories(); // the library's kinds

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("slots.ztd"));
    ZTGraphicsDocument document;
    draw(document);
    save(document, file);

    ZTGraphicsDocument other;
    load(file, other);
    tell("loaded", other);
    exportMarks(other, folder.filePath(QStringLiteral("slots.svg")));
    QTextStream(stdout) << "exported: "
                        << QDir(folder.path()).entryList(QDir::Files).join(QLatin1Char(' '))
                        << '\n';
    return 0;
}
