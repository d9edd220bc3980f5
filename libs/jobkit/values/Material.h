#pragma once

#include <jobkit/values/Pen.h>

#include <QtCore/QByteArray>

namespace jobkit {

/** What a material asks of the laser: a named set of pens, each number once. */
struct Material
{
    QString name;      ///< 1 to 200 characters
    QVector<Pen> pens; ///< by their numbers

    /** What is wrong, with the field's name, translated; empty: nothing. */
    QString problem() const;
};

bool operator==(const Material &a, const Material &b);
inline bool operator!=(const Material &a, const Material &b) { return !(a == b); }

/** The material as JSON, `docs/formats/job-pens.md`. */
QByteArray writeMaterial(const Material &material);

/**
 * Reads what `writeMaterial` writes. Fields that are left out keep the values of `defaultPen`.
 *
 * Failure: false, `material` stays, and `error` (if given) names the field, what is wrong there and
 * the range, in one translated sentence: "pens[2].powerPercent: 0 to 100 is allowed, not 140".
 * Limit: 1 MiB, 9,999 pens.
 */
bool readMaterial(const QByteArray &json, Material *material, QString *error);

} // namespace jobkit
