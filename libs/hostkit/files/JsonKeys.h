#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace hostkit {

/**
 * The first key that stands twice in one object of a JSON text; none if there is no such key.
 *
 * Of two values under one key a reader takes one, and it is anyone's guess which. Refuse such a
 * text before `QJsonDocument` reads it, which moreover loses the memory of the other value when
 * that is an array or an object.
 *
 * The text may be damaged: it is looked at as far as its brackets and quotes make sense. Costs one
 * pass over the text.
 */
std::optional<QString> jsonKeyTwice(const QByteArray &json);

} // namespace hostkit
