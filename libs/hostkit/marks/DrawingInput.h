#pragma once

#include <hostkit/files/Failure.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryFile>

#include <memory>

namespace hostkit {

/**
 * A plotter drawing on its way in: reads it, tells what is wrong with it, and offers it as a file
 * that shapes can load. The library's own reader takes what it can and is silent about the rest.
 */
class DrawingInput
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingInput)

public:
    /** Limit: no drawing larger than this is read; it would hold some 17 million points. */
    static constexpr qint64 kMaxBytes = qint64(256) * 1024 * 1024;

    DrawingInput();
    ~DrawingInput();
    DrawingInput(const DrawingInput &) = delete;
    DrawingInput &operator=(const DrawingInput &) = delete;

    /**
     * Reads the file, pipe or device `name`; "-" is standard input.
     *
     * Failure: false, and `failure` (if given) says why: `CannotRead` (too large among it),
     * `OtherFormat` for what is empty, binary or holds nothing that can be drawn, `NotPossible`
     * without room for a copy.
     */
    bool open(const QString &name, Failure *failure);

    /**
     * A file with the drawing, good as long as this object: the file itself, or a temporary copy
     * of what can be read only once. Absolute, so that no name is taken for anything but a file.
     */
    const QString &filePath() const { return m_path; }

    /**
     * What the drawing holds and which lines lose something. Filled in also where `open` fails
     * because nothing can be drawn; without lines where it failed before.
     */
    const PltReport &report() const { return m_contents; }

    /** Size of the drawing as the library imports it, in millimetres: always 20 high. */
    const QSizeF &sizeMm() const { return m_size; }

    /** "line 17: no point in "PU10,20;"" */
    static QString describe(const PltProblem &problem);

private:
    bool readAll(const QString &name, QByteArray *bytes, Failure *failure);
    bool keepCopy(const QByteArray &bytes, Failure *failure);

    QString m_path;
    PltReport m_contents;
    QSizeF m_size;
    std::unique_ptr<QTemporaryFile> m_copy;
};

} // namespace hostkit
