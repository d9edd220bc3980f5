#pragma once

#include "CleanArgument.h"
#include "InputFiles.h"
#include "WorkLimits.h"

#include <hostkit/import/DrawingImport.h>
#include <hostkit/marks/MarkJob.h>

#include <vectorkit/VectorReader.h>

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <string>

class Progress;

/** SVG, DXF and plotter drawings of any dialect, which commands take in at true size. */
class ForeignFiles
{
    Q_DECLARE_TR_FUNCTIONS(ForeignFiles)

public:
    /** --size, --width, --height, --unit, --split, --tolerance, --fill-open, --clean. */
    void addOptions(CLI::App *owner);

    /** The option of those above that was given, for a message; null for none. */
    const char *givenOption() const;

    /** Throws a usage error for sizes that contradict each other. */
    void checkTogether() const;

    /**
     * Brings the files into a document, side by side, hatched, enlarged and turned as `layout`
     * asks. False, told on stderr, when one of them could not be taken in; the others are in the
     * document then.
     */
    bool import(const InputFiles &files, const hostkit::MarkJobOptions &layout,
                ZTGraphicsDocument &document, Progress &progress);

    /** Moves what came in so that its middle lies in the middle of the work area. */
    void centre(ZTGraphicsDocument &document) const;

    /** Prints what was mended, a line a file; nothing without --clean. */
    void printCleaning() const;

    /** Prints what one file holds; false, told on stderr, when it cannot be read. */
    static bool describe(const InputFiles &files);

    hostkit::ImportOptions options;

    // After `import`: what came in.
    QVector<ZTAbstractGraphicsItem *> items; ///< in the order of the files. Owner: the document
    QSizeF pitchMm{0.0, 0.0}; ///< from a copy of the whole row to the next one, gaps included

private:
    bool importFile(const InputFiles &files, const std::string &name,
                    const hostkit::MarkJobOptions &layout, ZTGraphicsDocument &document);
    bool prepare(const std::string &name, const hostkit::MarkJobOptions &layout,
                 vectorkit::VectorDrawing *drawing);
    void place(const QList<ZTAbstractGraphicsItem *> &added, const QSizeF &gapMm,
               ZTGraphicsDocument &document);

    CLI::App *m_command = nullptr; ///< owned by the application it was added to
    vectorkit::ReadOptions m_reading;
    QSizeF m_sizeMm;
    CleanArgument m_cleaning;
    QStringList m_cleaned; ///< a line a file
    WorkLimits m_work;
};
