#pragma once

#include <QtCore/QString>

namespace hostkit {

/** Why a drawing was not read, loaded or written. */
struct DrawingError
{
    enum class Kind {
        None,
        Cancelled,    ///< the progress function said so
        CannotRead,   ///< the file is missing, is a folder, may not be read, is too large
        CannotWrite,  ///< no room, no permission, no such folder
        NotADrawing,  ///< another kind of file
        NewerVersion, ///< a drawing of a later version of this system
        Damaged,      ///< a drawing that is not whole
        NotLoadable,  ///< whole, but it holds what this program cannot load or save
    };

    Kind kind = Kind::None;
    QString reason; ///< one sentence without the file's name, in English
};

} // namespace hostkit
