#include <codekit/CodeKind.h>

#include <QtCore/QCoreApplication>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

} // namespace

const QVector<CodeKindInfo> &codeKinds()
{
    // Quiet zones: left, top, right, bottom, as each symbology's standard asks for.
    static const QVector<CodeKindInfo> kKinds = {
        {CodeKind::DataMatrix, "datamatrix", "Data Matrix", false, {1, 1, 1, 1}, 0, 0, 30, false},
        {CodeKind::Qr, "qr", "QR Code", false, {4, 4, 4, 4}, 1, 4, 40, false},
        {CodeKind::MicroQr, "microqr", "Micro QR", false, {2, 2, 2, 2}, 1, 3, 4, false},
        {CodeKind::RectMicroQr, "rmqr", "rMQR", false, {2, 2, 2, 2}, 2, 4, 32, false},
        {CodeKind::Aztec, "aztec", "Aztec", false, {0, 0, 0, 0}, 1, 4, 36, false},
        {CodeKind::Pdf417, "pdf417", "PDF417", false, {2, 2, 2, 2}, 1, 9, 0, false},
        {CodeKind::MicroPdf417, "micropdf417", "Micro PDF417", false, {1, 1, 1, 1}, 0, 0, 0, false},
        {CodeKind::Code128, "code128", "Code 128", true, {10, 0, 10, 0}, 0, 0, 0, false},
        {CodeKind::Code39, "code39", "Code 39", true, {10, 0, 10, 0}, 0, 0, 0, false},
        {CodeKind::Code39Extended,
         "code39ext",
         "Code 39 extended",
         true,
         {10, 0, 10, 0},
         0,
         0,
         0,
         false},
        {CodeKind::Code93, "code93", "Code 93", true, {10, 0, 10, 0}, 0, 0, 0, false},
        {CodeKind::Codabar, "codabar", "Codabar", true, {10, 0, 10, 0}, 0, 0, 0, false},
        {CodeKind::Interleaved25,
         "i25",
         "Interleaved 2 of 5",
         true,
         {10, 0, 10, 0},
         0,
         0,
         0,
         false},
        {CodeKind::Itf14, "itf14", "ITF-14", true, {10, 0, 10, 0}, 0, 0, 0, false},
        {CodeKind::Ean13, "ean13", "EAN-13", true, {11, 0, 7, 0}, 0, 0, 0, false},
        {CodeKind::Ean8, "ean8", "EAN-8", true, {7, 0, 7, 0}, 0, 0, 0, false},
        {CodeKind::UpcA, "upca", "UPC-A", true, {9, 0, 9, 0}, 0, 0, 0, false},
        {CodeKind::UpcE, "upce", "UPC-E", true, {9, 0, 7, 0}, 0, 0, 0, false},
        {CodeKind::Gs1_128, "gs1-128", "GS1-128", true, {10, 0, 10, 0}, 0, 0, 0, true},
        {CodeKind::Gs1DataMatrix,
         "gs1-datamatrix",
         "GS1 DataMatrix",
         false,
         {1, 1, 1, 1},
         0,
         0,
         30,
         true},
    };
    return kKinds;
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
        return tr("any text; up to 35 digits, 21 capitals or 15 bytes");
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
        return tr("letters, digits and signs of Latin-1; up to 60 characters or 120 digits");
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
