#pragma once

#include <jobkit/values/Pen.h>

#include <QtCore/QJsonObject>

namespace jobkit {

/** One pen of a list. Failure: false, with the field below `path` in `error`; `pen` stays. */
bool readPen(const QJsonObject &object, const QString &path, Pen *pen, QString *error);

QJsonObject penToJson(const Pen &pen);

} // namespace jobkit
