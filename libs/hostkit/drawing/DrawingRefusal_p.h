#pragma once

#include <hostkit/drawing/DrawingError.h>

namespace hostkit {

/** Says why; always false, for whoever says it to return. */
inline bool refuse(DrawingError *error, DrawingError::Kind kind, const QString &reason)
{
    *error = {kind, reason};
    return false;
}

inline bool refuseDamaged(DrawingError *error, const QString &what)
{
    return refuse(error, DrawingError::Kind::Damaged,
                  QStringLiteral("the drawing is damaged: %1").arg(what));
}

} // namespace hostkit
