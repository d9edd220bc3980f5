#pragma once

#include <studio/import/ImportSource.h>
#include <studio/program/Messages.h>

#include <QtCore/QObject>

namespace studio {

/**
 * Brings changed files in once more, for shapes that came from them: what a shape shows follows its
 * file, and its place, size, pen and hatch stay. Parts that are new in the file come in beside the
 * others, and those that are gone from it go.
 */
class Reimporter : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    Reimporter(ZTGraphicsDocument &document, Messages &messages, QObject *parent = nullptr);

    /**
     * For the selected shapes, and all that came in together with them, as one undo step.
     *
     * Failure: a file that cannot be read is told in a message, and its shapes stay as they are.
     */
    void reimportSelected();

Q_SIGNALS:
    /** What was done or why nothing was; for people. */
    void told(const QString &words);

private:
    /** What follows from one file. */
    struct Outcome
    {
        int followed = 0;
        int added = 0;
        int gone = 0;
    };

    bool read(const ImportSource &source, vectorkit::VectorDrawing *drawing);
    Outcome follow(const ImportSource &source, const vectorkit::VectorDrawing &drawing);
    void place(ShapeItem &fresh, const ShapeItem &beside, const ImportSource &sourceBeside,
               const QPointF &shiftMm) const;

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
};

} // namespace studio
