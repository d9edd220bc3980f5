#pragma once

#include <codekit/CodeMarks.h>
#include <codekit/shape/CodeSettings.h>

#include <QtGui/QPainterPath>

namespace codekit {

/** The letters of a text for people. Frame: millimetres, y down. */
struct HumanTextPath
{
    QPainterPath outlines; ///< closed: to be hatched
    QPainterPath strokes;  ///< of a stroke font: single lines
    QRectF boxMm;          ///< around both
};

/**
 * Lays out a text on one line, the top left of its box at (0, 0); control characters become blanks.
 *
 * Order: GUI thread, with a `QGuiApplication`, after the fonts are known.
 * Failure: false with the translated reason where a stroke font is not on this machine or the text
 * leaves nothing; `path` stays.
 */
bool layOutHumanText(const HumanText &how, const QString &text, HumanTextPath *path,
                     QString *reason);

/**
 * The text for people in its place beside a code, a module away from the code's field: on one line
 * and in the middle. The digits of EAN and UPC stand under the bars that spell them, and those of
 * an add-on above, unless characters were given a spacing or are wider than a digit's seven
 * modules.
 *
 * Frame: that of `marks`. Order, Failure: as `layOutHumanText`.
 */
bool layOutCodeText(const HumanText &how, const CodeSymbol &symbol, const CodeForm &form,
                    const CodeMarks &marks, HumanTextPath *path, QString *reason);

} // namespace codekit
