#pragma once

#include <codekit/CodeSymbol.h>

#include <QtGui/QPainterPath>

namespace codekit {

/** How the dark areas are marked. The values are written to drawings: they stay. */
enum class CodeStyle : quint8 {
    Merged = 0,  ///< outlines of the dark areas: no line inside of one, holes as holes
    Squares = 1, ///< each dark module by itself
    Dots = 2,    ///< a circle in each dark module
    Points = 3,  ///< one point in the middle of each dark module, for a dwell of the beam
    Bars = 4,    ///< each run of dark modules in a row as a rectangle
    BarLines = 5 ///< bars as a line down the middle of each dark module; squares as a line along
                 ///< each run in a row
};

/** Size and form of a code. Lengths are millimetres. */
struct CodeForm
{
    CodeStyle style = CodeStyle::Merged; ///< what is made of the dark modules
    double moduleMm = 0.5;               ///< greater than 0
    double heightMm = 10.0; ///< of the bars of a linear code; greater than 0, else not looked at
    double growthMm = 0.0;  ///< taken off each dark area's width: the beam gives it back; less
                            ///< than the module, of single lines at most the module
    double dotShare = 0.8;  ///< diameter of a dot as a share of the module, above 0, at most 1
    bool isInverse = false; ///< marks what is light, with the quiet zone as its frame
};

/** What is marked of a code. */
struct CodeMarks
{
    QPainterPath areas;      ///< closed outlines, even-odd: to be hatched
    QVector<QLineF> lines;   ///< of `BarLines`
    QVector<QPointF> points; ///< of `Points`
    QRectF symbolMm;         ///< the code without its quiet zone; its top left is (0, 0)
    QRectF fieldMm;          ///< with its quiet zone: to be kept free of anything else
};

/**
 * What to mark of a code.
 *
 * Frame: millimetres, x right, y down; the code's top left module begins at (0, 0).
 * Failure: false with the translated reason for a form out of its ranges; `marks` stays.
 */
bool markCode(const CodeSymbol &symbol, const CodeForm &form, CodeMarks *marks, QString *reason);

/** Size of a code without its quiet zone. */
QSizeF codeSizeMm(const CodeSymbol &symbol, const CodeForm &form);

/** The module that makes the code this wide without its quiet zone. Range: `widthMm` above 0. */
double moduleForWidth(const CodeSymbol &symbol, double widthMm);

} // namespace codekit
