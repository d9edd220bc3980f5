#pragma once

#include <hostkit/drawing/DrawingLoader.h>

#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

class InputFiles;
class Progress;

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

    /**
     * Opens the one drawing among the inputs. False, told on stderr, when it cannot be read or
     * loaded. Warns of missing fonts.
     */
    bool open(const InputFiles &files, Progress &progress);

    /** Names of the files that its variant texts take their rows from. */
    std::vector<std::string> textFiles() const;

    /** The shapes, the topmost one first. */
    QVector<ZTAbstractGraphicsItem *> items() const;

    hostkit::DrawingFile file;
    hostkit::DrawingReport report;
    ZTGraphicsDocument document;

private:
    bool read(const InputFiles &files, hostkit::Failure *error);
    void warnOfUnknownKinds(const std::string &name) const;
};
