#pragma once

#include <studio/Messages.h>

#include <QtCore/QPointF>

#include <optional>

class ZTGraphicsDocument;

namespace studio {

/** Brings plotter files into a document, and tells what was wrong with them. */
class Importer
{
public:
    /** Both are borrowed and outlive the importer. */
    Importer(ZTGraphicsDocument &document, Messages &messages);

    /**
     * Imports files side by side as one undo step, and selects what came in.
     *
     * @param centrePx middle of the row of drawings on the scene; the origin if none is given
     * @return number of files that came in
     *
     * Failure: a file that holds no drawing is left out and named in a message; one that loses
     * lines comes in, and a message lists them.
     */
    int importFiles(const QStringList &paths, std::optional<QPointF> centrePx = std::nullopt);

private:
    ZTGraphicsDocument &document;
    Messages &messages;
};

} // namespace studio
