#pragma once

#include <QtCore/QMargins>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace codekit {

/** The symbologies. The values are written to drawings: they stay. */
enum class CodeKind : quint8 {
    Qr = 0,
    MicroQr = 1,
    RectMicroQr = 2,
    DataMatrix = 3,
    Aztec = 4,
    Pdf417 = 5,
    MicroPdf417 = 6,
    Code128 = 7,
    Code39 = 8,
    Code39Extended = 9,
    Code93 = 10,
    Codabar = 11,
    Interleaved25 = 12,
    Itf14 = 13,
    Ean13 = 14,
    Ean8 = 15,
    UpcA = 16,
    UpcE = 17,
    Gs1_128 = 18,
    Gs1DataMatrix = 19
};

/** A level of error correction. */
struct CodeLevel
{
    int number = 0; ///< as `CodeSpec` and drawings have it
    QString name;   ///< as the symbology calls it: "H"; the same in all languages
};

/** What holds for all codes of a kind, and what can be asked of them. */
struct CodeKindInfo
{
    CodeKind kind = CodeKind::Qr;  ///< which kind this is about
    const char *name = "";         ///< on the command line and in files: "datamatrix"
    const char *label = "";        ///< as people call it; the same in all languages
    bool isLinear = false;         ///< bars of one height, which can be chosen
    QMargins quietModules;         ///< what the symbology wants free around it
    QVector<CodeLevel> levels;     ///< of error correction that can be asked for
    int mostVersion = 0;           ///< sizes that can be asked for, 1 to this; 0: none
    int mostMask = -1;             ///< masks that can be asked for, 0 to this; -1: none
    int mostColumns = 0;           ///< columns that can be asked for, 1 to this; 0: none
    bool isGs1 = false;            ///< content in bracketed identifiers: "[01]04012345678901"
    bool canBeRectangular = false; ///< has sizes that are not square beside those that are
    bool hasCheckChoice = false;   ///< a check digit may be there or not
    bool hasCharsets = false;      ///< can name the character set of its content
    bool hasControls = false;      ///< holds control characters, so that escapes make sense
};

/** All kinds, in the order in which they are offered. */
const QVector<CodeKindInfo> &codeKinds();

const CodeKindInfo &infoOf(CodeKind kind);

/** The kind of a name, or null. */
const CodeKindInfo *kindNamed(const QString &name);

/** The level of a kind by its name, letters of either case, or by its number; 0 for none. */
int levelNamed(const CodeKindInfo &info, const QString &name);

/** What the kind can hold, one translated sentence. */
QString limitsOf(CodeKind kind);

} // namespace codekit
