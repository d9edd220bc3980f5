#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

class ZTAbstractGraphicsItem;

namespace hostkit {

/** Text height of a stroke font, which all texts in it share. */
struct StrokeFontHeight
{
    QString fileName;    ///< without a folder: "simplex.shx"
    double height = 0.0; ///< drawing units
};

/** The heights that the stroke fonts of the texts among items have now, by file name. */
QVector<StrokeFontHeight> strokeFontHeights(const QVector<ZTAbstractGraphicsItem *> &items);

/**
 * The heights in which a reader without text items of its own shows the fonts: those that the
 * topmost text in each asks for, by file name. Texts that do not set their own height ask for the
 * one that their fonts have now.
 */
QVector<StrokeFontHeight> recordedFontHeights(const QVector<ZTAbstractGraphicsItem *> &items);

/** Gives the fonts these heights, for every text in them; fonts that are not here are left out. */
void setStrokeFontHeights(const QVector<StrokeFontHeight> &heights);

} // namespace hostkit
