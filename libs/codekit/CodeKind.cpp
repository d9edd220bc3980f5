#include <codekit/CodeKind.h>

#include <QtCore/QCoreApplication>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

CodeKindInfo newKind(CodeKind kind, const char *name, const char *label, const QMargins &quiet)
{
    CodeKindInfo info;
    info.kind = kind;
    info.name = name;
    info.label = label;
    info.quietModules = quiet;
    return info;
}

/** Squares, or rows of bars, that hold text in any script. */
CodeKindInfo matrixKind(CodeKind kind, const char *name, const char *label, int quiet)
{
    CodeKindInfo info = newKind(kind, name, label, {quiet, quiet, quiet, quiet});
    info.hasCharsets = true;
    info.hasControls = true;
    return info;
}

CodeKindInfo qrKind(CodeKind kind, const char *name, const char *label, int quiet,
                    const QVector<int> &levels)
{
    CodeKindInfo info = matrixKind(kind, name, label, quiet);
    for (const int level : levels)
        info.levels.append({level, QStringLiteral("LMQH").mid(level - 1, 1)});
    return info;
}

QVector<CodeLevel> numberedLevels(int most)
{
    QVector<CodeLevel> levels;
    for (int level = 1; level <= most; ++level)
        levels.append({level, QString::number(level)});
    return levels;
}

CodeKindInfo linearKind(CodeKind kind, const char *name, const char *label, int left, int right)
{
    CodeKindInfo info = newKind(kind, name, label, {left, 0, right, 0});
    info.isLinear = true;
    return info;
}

CodeKindInfo withControls(CodeKindInfo info)
{
    info.hasControls = true;
    return info;
}

CodeKindInfo withCheckChoice(CodeKindInfo info)
{
    info.hasCheckChoice = true;
    return info;
}

QVector<CodeKindInfo> squareKinds()
{
    CodeKindInfo dataMatrix = matrixKind(CodeKind::DataMatrix, "datamatrix", "Data Matrix", 1);
    dataMatrix.mostVersion = 30;
    dataMatrix.canBeRectangular = true;
    CodeKindInfo qr = qrKind(CodeKind::Qr, "qr", "QR Code", 4, {1, 2, 3, 4});
    qr.mostVersion = 40;
    qr.mostMask = 7;
    CodeKindInfo microQr = qrKind(CodeKind::MicroQr, "microqr", "Micro QR", 2, {1, 2, 3});
    microQr.mostVersion = 4;
    microQr.mostMask = 3;
    microQr.hasCharsets = false;
    CodeKindInfo rmqr = qrKind(CodeKind::RectMicroQr, "rmqr", "rMQR", 2, {2, 4});
    rmqr.mostVersion = 32;
    CodeKindInfo aztec = matrixKind(CodeKind::Aztec, "aztec", "Aztec", 0);
    aztec.levels = numberedLevels(4);
    aztec.mostVersion = 36;
    CodeKindInfo pdf417 = matrixKind(CodeKind::Pdf417, "pdf417", "PDF417", 2);
    pdf417.levels = numberedLevels(9);
    pdf417.mostColumns = 30;
    CodeKindInfo microPdf = matrixKind(CodeKind::MicroPdf417, "micropdf417", "Micro PDF417", 1);
    microPdf.mostColumns = 4;
    return {dataMatrix, qr, microQr, rmqr, aztec, pdf417, microPdf};
}

QVector<CodeKindInfo> barKinds()
{
    return {
        withControls(linearKind(CodeKind::Code128, "code128", "Code 128", 10, 10)),
        withCheckChoice(linearKind(CodeKind::Code39, "code39", "Code 39", 10, 10)),
        withControls(withCheckChoice(
            linearKind(CodeKind::Code39Extended, "code39ext", "Code 39 extended", 10, 10))),
        withControls(linearKind(CodeKind::Code93, "code93", "Code 93", 10, 10)),
        withCheckChoice(linearKind(CodeKind::Codabar, "codabar", "Codabar", 10, 10)),
        withCheckChoice(linearKind(CodeKind::Interleaved25, "i25", "Interleaved 2 of 5", 10, 10)),
        linearKind(CodeKind::Itf14, "itf14", "ITF-14", 10, 10),
        linearKind(CodeKind::Ean13, "ean13", "EAN-13", 11, 7),
        linearKind(CodeKind::Ean8, "ean8", "EAN-8", 7, 7),
        linearKind(CodeKind::UpcA, "upca", "UPC-A", 9, 9),
        linearKind(CodeKind::UpcE, "upce", "UPC-E", 9, 7),
    };
}

QVector<CodeKindInfo> gs1Kinds()
{
    CodeKindInfo bars = linearKind(CodeKind::Gs1_128, "gs1-128", "GS1-128", 10, 10);
    bars.isGs1 = true;
    CodeKindInfo square =
        newKind(CodeKind::Gs1DataMatrix, "gs1-datamatrix", "GS1 DataMatrix", {1, 1, 1, 1});
    square.isGs1 = true;
    square.mostVersion = 30;
    square.canBeRectangular = true;
    return {bars, square};
}

} // namespace

// Quiet zones as each symbology's standard asks for.
const QVector<CodeKindInfo> &codeKinds()
{
    static const QVector<CodeKindInfo> kKinds = squareKinds() + barKinds() + gs1Kinds();
    return kKinds;
}

int levelNamed(const CodeKindInfo &info, const QString &name)
{
    for (const CodeLevel &level : info.levels) {
        if (name.compare(level.name, Qt::CaseInsensitive) == 0 ||
            name == QString::number(level.number))
            return level.number;
    }
    return 0;
}

const CodeKindInfo &infoOf(CodeKind kind)
{
    for (const CodeKindInfo &info : codeKinds()) {
        if (info.kind == kind)
            return info;
    }
    return codeKinds().first();
}

const CodeKindInfo *kindNamed(const QString &name)
{
    for (const CodeKindInfo &info : codeKinds()) {
        if (name == QLatin1String(info.name))
            return &info;
    }
    return nullptr;
}

QString limitsOf(CodeKind kind)
{
    switch (kind) {
    case CodeKind::Qr:
        return tr("any text; up to 7,089 digits, 4,296 capitals or 2,953 bytes");
    case CodeKind::MicroQr:
        return tr("all ASCII characters; up to 35 digits, 21 capitals or 15 characters");
    case CodeKind::RectMicroQr:
        return tr("any text; up to 361 digits, 219 capitals or 150 bytes");
    case CodeKind::DataMatrix:
        return tr("any text; up to 3,116 digits, 2,335 letters or 1,555 bytes");
    case CodeKind::Aztec:
        return tr("any text; up to 3,832 digits, 3,067 letters or 1,914 bytes");
    case CodeKind::Pdf417:
        return tr("any text; up to 2,710 digits, 1,850 letters or 1,108 bytes");
    case CodeKind::MicroPdf417:
        return tr("any text; up to 366 digits, 250 letters or 150 bytes");
    case CodeKind::Code128:
        return tr("all ASCII characters; up to 60, or 120 digits");
    case CodeKind::Code39:
        return tr("capitals, digits, space and - . $ / + %; up to 85 characters");
    case CodeKind::Code39Extended:
        return tr("all ASCII characters; up to 85");
    case CodeKind::Code93:
        return tr("all ASCII characters; up to 107");
    case CodeKind::Codabar:
        return tr("A to D at both ends, between them digits and - $ : / . +; 3 to 60 characters");
    case CodeKind::Interleaved25:
        return tr("digits, an even number of them; up to 90");
    case CodeKind::Itf14:
        return tr("13 digits, to which the check digit is added, or 14 with it");
    case CodeKind::Ean13:
        return tr("12 digits, to which the check digit is added, or 13 with it; an add-on of 2 or "
                  "5 digits behind a +");
    case CodeKind::Ean8:
        return tr("7 digits, to which the check digit is added, or 8 with it; an add-on of 2 or 5 "
                  "digits behind a +");
    case CodeKind::UpcA:
        return tr("11 digits, to which the check digit is added, or 12 with it; an add-on of 2 or "
                  "5 digits behind a +");
    case CodeKind::UpcE:
        return tr("6 digits, 7 with the number system 0 or 1 before them, or 8 with the check "
                  "digit; an add-on of 2 or 5 digits behind a +");
    case CodeKind::Gs1_128:
        return tr("application identifiers in brackets, as in [01]04012345678901[10]LOT7; up to 48 "
                  "characters");
    case CodeKind::Gs1DataMatrix:
        return tr("application identifiers in brackets, as in [01]04012345678901[10]LOT7");
    }
    return QString();
}

} // namespace codekit
