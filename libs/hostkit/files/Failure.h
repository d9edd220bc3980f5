#pragma once

#include <QtCore/QString>

namespace hostkit {

/**
 * Why something asked for was not done: the one type for it in everything around the library.
 *
 * It carries its texts from where it arose, translated, so that no one composes a sentence out of
 * two languages.
 */
struct Failure
{
    enum class Kind {
        None,
        Cancelled,    ///< whoever asked said so
        CannotRead,   ///< missing, a folder, not permitted, too large
        CannotWrite,  ///< no room, no permission, no such folder
        OtherFormat,  ///< a file of another kind
        NewerVersion, ///< of a later version of this system
        Damaged,      ///< not whole
        NotPossible,  ///< whole and readable, but beyond what this program can do
    };

    Kind kind = Kind::None;
    QString reason; ///< one sentence without the file's name, translated
    QString advice; ///< what to do about it, a sentence of its own, translated; may be empty
};

/** Says why; always false, for whoever says it to return. `failure` may be null. */
inline bool fail(Failure *failure, Failure::Kind kind, const QString &reason,
                 const QString &advice = {})
{
    if (failure != nullptr)
        *failure = {kind, reason, advice};
    return false;
}

} // namespace hostkit
