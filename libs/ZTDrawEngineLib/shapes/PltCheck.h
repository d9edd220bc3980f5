#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>

/** One line of a plotter file that does not do what its author may think. */
struct PltProblem
{
    int line = 0; ///< counted from 1
    QString
        text; ///< what is wrong, such as `no point in "PU10,20;"`; ready to show, not translated
};

/** What a plotter file holds, counted as `PltReader` reads it. */
struct PltReport
{
    int lines = 0;          ///< all lines, a last one without line end included
    int penUpLines = 0;     ///< lines that start with "PU", ill-formed ones included
    int penDownLines = 0;   ///< lines that start with "PD", ill-formed ones included
    int skippedLines = 0;   ///< lines that start with neither, blank ones included
    int illFormedLines = 0; ///< pen lines that lose something: no point, no number, text left over
    int points = 0;         ///< points read from pen lines
    int polylines = 0;      ///< polylines of two points or more that are drawn

    /** Around what is read, plotter units, y upward. A height of 0 makes an empty drawing. */
    QRectF extent;

    QVector<PltProblem> problems; ///< the first ill-formed lines
    QVector<PltProblem> skipped;  ///< the first skipped lines that are not blank: `skipped "SP1;"`
};

/**
 * Tells what `PltReader` makes of a plotter file, line by line, for people who wonder where half of
 * their drawing went. The reader itself is silent: it takes what it can.
 *
 * Reader and check share one reading of a line, so they cannot differ.
 */
class ZTDRAWENGINELIB_EXPORT PltCheck
{
public:
    /**
     * Inspects the whole content of a file.
     *
     * Each list of the report ends after `maxListed` entries; the counts go on.
     * Failure: none; no bytes give a report of zeros.
     */
    static PltReport inspect(const QByteArray &bytes, int maxListed = 20);
};
