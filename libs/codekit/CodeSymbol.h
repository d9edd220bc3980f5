#pragma once

#include <codekit/CodeKind.h>

#include <QtCore/QBitArray>
#include <QtCore/QSize>
#include <QtCore/QVector>

namespace codekit {

/** How the bytes of a text that is not plain ASCII are named inside the code. */
enum class CodeCharset : quint8 {
    Automatic = 0, ///< none for ASCII, which every reader takes for the same; else UTF-8
    Utf8 = 1,      ///< UTF-8 by its ECI number, always
    Gbk = 2        ///< GB 2312 by its ECI number, or GB 18030 where that has not all characters
};

/** What to encode, and how. The fields that a kind does not have are not looked at. */
struct CodeSpec
{
    CodeKind kind = CodeKind::DataMatrix; ///< which symbology
    QString content;                      ///< as `limitsOf` tells
    int level = 0;   ///< error correction, a number of `CodeKindInfo::levels`; 0: the kind's own
    int version = 0; ///< size, 0: the smallest that holds the content
    int mask = -1;   ///< QR: 0 to 7, Micro QR: 0 to 3; -1: the best
    int columns = 0; ///< PDF417: 1 to 30, Micro PDF417: 1 to 4; 0: by itself
    bool isRectangular = false; ///< Data Matrix: the smallest size that is not square
    bool hasCheckDigit = false; ///< Code 39: modulo 43; Codabar: modulo 16; Interleaved 2 of 5
    bool hasEscapes = false;    ///< "\n", "\G", "\x1D" and the like stand for control characters
    CodeCharset charset = CodeCharset::Automatic; ///< of content beyond ASCII
};

/**
 * Why a kind cannot have an option that is set, one translated sentence; empty when it has all of
 * them. Their ranges are `encodeCode`'s to check.
 */
QString lackingOption(const CodeSpec &spec);

/** The modules of a code: a grid of dark and light, without its quiet zone. */
struct CodeSymbol
{
    CodeKind kind = CodeKind::DataMatrix; ///< which symbology
    int columns = 0;                      ///< modules in a row
    int rows = 0;                         ///< rows, from the top
    QBitArray dark;                       ///< row by row
    QVector<double> rowModules; ///< height of each row in modules; one of 1 in a linear code
    QString reads;              ///< what a reader gives, check digits included
    QString humanText;          ///< what stands below it where people are to read it

    /** Range: a row and a column that it has, from 0, at the top left. */
    bool isDark(int row, int column) const { return dark.testBit(row * columns + column); }
};

/**
 * Encodes a content.
 *
 * Failure: false, and `reason` says in one translated sentence what the symbology cannot hold, and
 * what to do; `symbol` stays as it was.
 */
bool encodeCode(const CodeSpec &spec, CodeSymbol *symbol, QString *reason);

/** Columns and rows of a size by its number; empty for a kind without sizes, or another number. */
QSize symbolSize(CodeKind kind, int version);

/** The check digit of EAN, UPC and ITF-14 for the digits before it. */
int checkDigitOf(const QString &digits);

/** The eleven digits of UPC-A that the six of UPC-E stand for, number system first. */
QString upcEExpanded(int numberSystem, const QString &sixDigits);

} // namespace codekit
