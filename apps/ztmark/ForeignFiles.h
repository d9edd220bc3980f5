#pragma once

#include <hostkit/import/DrawingImport.h>

#include <vectorkit/VectorReader.h>

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

class Progress;

/** SVG, DXF and plotter drawings of any dialect that a command takes in at true size. */
class ForeignFiles
{
    Q_DECLARE_TR_FUNCTIONS(ForeignFiles)

public:
    /**
     * Whether an ordinary file holds an SVG or DXF drawing, or a plotter drawing in a dialect that
     * the library's own reader draws nothing of. Standard input never does.
     */
    static bool isNamed(const std::string &name);

    /** --size, --width, --height, --unit, --split, --tolerance, --fill-open. */
    void addOptions(CLI::App *owner);

    /** Whether the files come in this way: by what one of them holds, or by an option. */
    bool isChosen(const std::vector<std::string> &names) const;

    /** Throws a usage error for sizes that contradict each other. */
    void checkTogether() const;

    /**
     * Brings the files into a document, side by side. False, told on stderr, when one of them could
     * not be read; the others are in the document then.
     */
    bool import(const std::vector<std::string> &names, ZTGraphicsDocument &document,
                Progress &progress);

    /** Prints what one file holds; false, told on stderr, when it cannot be read. */
    static bool describe(const std::string &name);

    hostkit::ImportOptions options;

private:
    static bool read(const std::string &name, const vectorkit::ReadOptions &how,
                     vectorkit::VectorDrawing *drawing);

    CLI::App *m_command = nullptr; ///< owned by the application it was added to
    vectorkit::ReadOptions m_reading;
    QSizeF m_sizeMm;
};
