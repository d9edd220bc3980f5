#pragma once

#include <QtCore/QLockFile>
#include <QtCore/QString>

namespace jobkit {

/**
 * Lets one program at a time take numbers of a drawing's file, for as long as this lives.
 *
 * It is a file beside the drawing, "NAME.ztd.lock", one whatever the drawing is called: past links.
 * That of a program that is gone does not count, nor does one that a power cut left empty.
 */
class NumberLock
{
public:
    enum class Result : quint8 {
        Taken,
        Busy,      ///< another program has it
        Impossible ///< no file can be made there
    };

    explicit NumberLock(const QString &drawingPath);

    /** Takes it, waiting so long at most while another program has it. */
    Result take(int waitMs = 0);

    /** Name of the file, without its folder. */
    QString fileName() const;

private:
    bool takeAfterACrash();

    QString m_path;
    QLockFile m_file;
};

} // namespace jobkit
