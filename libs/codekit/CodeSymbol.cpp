#include <codekit/CodeSymbol.h>

#include <codekit/CodeContent_p.h>
#include <codekit/CodeEscapes_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>

#include <zint.h>

#include <algorithm>
#include <memory>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

struct SymbolDeleter
{
    void operator()(zint_symbol *symbol) const { ZBarcode_Delete(symbol); }
};
using Encoder = std::unique_ptr<zint_symbol, SymbolDeleter>;

int symbologyOf(const CodeSpec &spec)
{
    switch (spec.kind) {
    case CodeKind::Qr:
        return BARCODE_QRCODE;
    case CodeKind::MicroQr:
        return BARCODE_MICROQR;
    case CodeKind::RectMicroQr:
        return BARCODE_RMQR;
    case CodeKind::DataMatrix:
    case CodeKind::Gs1DataMatrix:
        return BARCODE_DATAMATRIX;
    case CodeKind::Aztec:
        return BARCODE_AZTEC;
    case CodeKind::Pdf417:
        return BARCODE_PDF417;
    case CodeKind::MicroPdf417:
        return BARCODE_MICROPDF417;
    case CodeKind::Code128:
        return BARCODE_CODE128;
    case CodeKind::Code39:
        return BARCODE_CODE39;
    case CodeKind::Code39Extended:
        return BARCODE_EXCODE39;
    case CodeKind::Code93:
        return BARCODE_CODE93;
    case CodeKind::Codabar:
        return BARCODE_CODABAR;
    case CodeKind::Interleaved25:
        return BARCODE_C25INTER;
    case CodeKind::Itf14:
        return BARCODE_ITF14;
    case CodeKind::Ean13:
    case CodeKind::Ean8:
        return BARCODE_EANX_CHK;
    case CodeKind::UpcA:
        return BARCODE_UPCA_CHK;
    case CodeKind::UpcE:
        return BARCODE_UPCE_CHK;
    case CodeKind::Gs1_128:
        return BARCODE_GS1_128;
    }
    return BARCODE_DATAMATRIX;
}

constexpr int kEciUtf8 = 26;
constexpr int kEciGb2312 = 29;
constexpr int kEciGb18030 = 32;

bool isBeyondAscii(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7F; });
}

/** The number by which the code names its character set; 0 for the symbology's own. */
int eciOf(const CodeSpec &spec)
{
    if (spec.charset == CodeCharset::Gbk)
        return kEciGb2312; // which more readers know than its successors
    if (spec.charset == CodeCharset::Utf8)
        return kEciUtf8;
    // Readers guess at what codes hold beyond ASCII, also where the standard says it is Latin-1,
    // and many guess wrong.
    return infoOf(spec.kind).hasCharsets && isBeyondAscii(spec.content) ? kEciUtf8 : 0;
}

/** Where each kind has its options in the encoder. */
void setOptions(const CodeSpec &spec, int eci, zint_symbol *symbol)
{
    symbol->symbology = symbologyOf(spec);
    symbol->input_mode = infoOf(spec.kind).isGs1 ? GS1_MODE : UNICODE_MODE;
    symbol->eci = eci;
    if (spec.level > 0)
        symbol->option_1 = spec.kind == CodeKind::Pdf417 ? spec.level - 1 : spec.level;
    if (spec.version > 0)
        symbol->option_2 = spec.version;
    if (spec.columns > 0)
        symbol->option_2 = spec.columns;
    if (spec.mask >= 0)
        symbol->option_3 = (spec.mask + 1) << 8;
    if (symbol->symbology == BARCODE_DATAMATRIX && spec.version == 0)
        symbol->option_3 = DM_SQUARE;
    if (spec.hasCheckDigit)
        symbol->option_2 = 1;
}

QString levelsOf(const CodeKindInfo &info)
{
    QStringList names;
    for (const CodeLevel &level : info.levels)
        names << level.name;
    return names.join(QStringLiteral(", "));
}

bool isInRange(const CodeSpec &spec, QString *reason)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const QString label = QLatin1String(info.label);
    const auto isWithin = [&](const QString &what, int value, int least, int most) {
        if (value >= least && value <= most)
            return true;
        *reason =
            tr("%1 of %2 is %3 to %4, not %5").arg(what, label).arg(least).arg(most).arg(value);
        return false;
    };
    const bool hasLevel = spec.level == 0 || std::any_of(info.levels.begin(), info.levels.end(),
                                                         [&spec](const CodeLevel &level) {
                                                             return level.number == spec.level;
                                                         });
    if (!hasLevel) {
        *reason = tr("the error correction of %1 is one of %2").arg(label, levelsOf(info));
        return false;
    }
    return (spec.version == 0 || isWithin(tr("the size"), spec.version, 1, info.mostVersion)) &&
           (spec.mask < 0 || isWithin(tr("the mask"), spec.mask, 0, info.mostMask)) &&
           (spec.columns == 0 ||
            isWithin(tr("the number of columns"), spec.columns, 1, info.mostColumns));
}

/** The options that a kind has not are as if they were not set. */
CodeSpec withOwnOptions(CodeSpec spec)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    if (info.levels.isEmpty())
        spec.level = 0;
    if (info.mostVersion == 0)
        spec.version = 0;
    if (info.mostMask < 0)
        spec.mask = -1;
    if (info.mostColumns == 0)
        spec.columns = 0;
    spec.hasCheckDigit = spec.hasCheckDigit && info.hasCheckChoice;
    spec.hasEscapes = spec.hasEscapes && info.hasControls;
    spec.isRectangular = spec.isRectangular && info.canBeRectangular;
    if (!info.hasCharsets)
        spec.charset = CodeCharset::Automatic;
    return spec;
}

/** What is wrong with the elements of a GS1 content, from what the encoder found in them. */
QString gs1Reason(const QString &found)
{
    static const QRegularExpression kElement(QStringLiteral("AI \\((\\d+)\\)"));
    static const QRegularExpression kDigit(QStringLiteral("checksum '(.)', expected '(.)'"));
    static const QRegularExpression kTime(QStringLiteral("month|day|hour|minute|second"));
    static const QRegularExpression kPlace(QStringLiteral("position (\\d+)"));
    const QString element = kElement.match(found).captured(1);
    if (element.isEmpty())
        return tr("GS1 has no control characters");
    const QRegularExpressionMatch digit = kDigit.match(found);
    if (digit.hasMatch())
        return tr("the check digit of (%1) is %2, not %3")
            .arg(element, digit.captured(2), digit.captured(1));
    if (kTime.match(found).hasMatch())
        return tr("the value of (%1) is no date or time").arg(element);
    if (found.contains(QLatin1String("length")))
        return tr("the value of (%1) is not as long as it has to be").arg(element);
    const QRegularExpressionMatch place = kPlace.match(found);
    if (place.hasMatch())
        return tr("character %1 of the value of (%2) is not allowed there")
            .arg(place.captured(1), element);
    return tr("there is no application identifier (%1)").arg(element);
}

QString reasonOf(const CodeSpec &spec, int result, const zint_symbol *symbol)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const QString label = QLatin1String(info.label);
    if (info.isGs1 && (result == ZINT_ERROR_INVALID_DATA || result == ZINT_WARN_NONCOMPLIANT))
        return gs1Reason(QString::fromUtf8(symbol->errtxt));
    switch (result) {
    case ZINT_ERROR_TOO_LONG:
        if (spec.version > 0 || spec.isRectangular)
            return tr("the content is too long for this size of %1: choose a larger one")
                .arg(label);
        return tr("the content is too long for %1: %2").arg(label, limitsOf(spec.kind));
    case ZINT_WARN_INVALID_OPTION:
    case ZINT_ERROR_INVALID_OPTION:
        return tr("%1 cannot be made with these settings").arg(label);
    case ZINT_ERROR_INVALID_DATA:
        return tr("%1 cannot hold this content: %2").arg(label, limitsOf(spec.kind));
    default:
        return tr("%1 cannot be made of this content (%2)")
            .arg(label, symbol != nullptr ? QString::fromUtf8(symbol->errtxt) : QString());
    }
}

/** In modules: stacked codes have rows as low as their standards allow, linear ones a single row.
 */
double rowHeight(const zint_symbol &made, int row)
{
    if (made.symbology == BARCODE_PDF417)
        return 3.0;
    if (made.symbology == BARCODE_MICROPDF417)
        return 2.0;
    return made.rows == 1 ? 1.0 : double(made.row_height[row]);
}

bool isDarkIn(const zint_symbol &made, int row, int column)
{
    return ((made.encoded_data[row][column / 8] >> (column % 8)) & 1) != 0;
}

/** Up to the last bar: Codabar comes with the gap that follows each character, the last too. */
int columnsOf(const zint_symbol &made, CodeKind kind)
{
    int columns = made.width;
    while (infoOf(kind).isLinear && columns > 1 && !isDarkIn(made, 0, columns - 1))
        --columns;
    return columns;
}

void takeModules(const zint_symbol &made, CodeSymbol *symbol)
{
    symbol->columns = columnsOf(made, symbol->kind);
    symbol->rows = made.rows;
    symbol->dark = QBitArray(symbol->rows * symbol->columns);
    symbol->rowModules.clear();
    for (int row = 0; row < symbol->rows; ++row) {
        symbol->rowModules.append(rowHeight(made, row));
        for (int column = 0; column < symbol->columns; ++column)
            symbol->dark.setBit(row * symbol->columns + column, isDarkIn(made, row, column));
    }
}

/** What the encoder is given, and itself. */
struct Encoding
{
    QByteArray content;
    int eci = 0;
    Encoder encoder; ///< null where there is no memory for it
};

/** One try; the encoder's result, with its words in it where it fails. */
int encodeOnce(const CodeSpec &spec, Encoding *made)
{
    made->encoder.reset(ZBarcode_Create());
    if (!made->encoder)
        return ZINT_ERROR_MEMORY;
    zint_symbol *symbol = made->encoder.get();
    const QByteArray &content = made->content;
    setOptions(spec, made->eci, symbol);
    return ZBarcode_Encode(symbol, reinterpret_cast<const unsigned char *>(content.constData()),
                           content.size());
}

// An option that the encoder puts aside, or a code against its standard, is none of ours.
bool isMade(int result) { return result == 0 || result == ZINT_WARN_USES_ECI; }

/** Tries the sizes of a Data Matrix that are not square, from the smallest up. */
int encodeRectangular(CodeSpec spec, Encoding *made)
{
    constexpr int kFirstRectangle = 25; // 8 x 18; the last of six is 16 x 48
    int result = ZINT_ERROR_TOO_LONG;
    for (spec.version = kFirstRectangle; spec.version <= infoOf(spec.kind).mostVersion;
         ++spec.version) {
        result = encodeOnce(spec, made);
        if (result != ZINT_ERROR_TOO_LONG && result != ZINT_WARN_INVALID_OPTION)
            break;
    }
    return result;
}

int encodeAnySize(const CodeSpec &spec, Encoding *made)
{
    if (made->content.size() > ZINT_MAX_DATA_LEN)
        return ZINT_ERROR_TOO_LONG;
    return spec.isRectangular && spec.version == 0 ? encodeRectangular(spec, made)
                                                   : encodeOnce(spec, made);
}

} // namespace

QString lackingOption(const CodeSpec &spec)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const QString label = QLatin1String(info.label);
    if (spec.level != 0 && info.levels.isEmpty())
        return tr("%1 has no levels of error correction").arg(label);
    if (spec.version != 0 && info.mostVersion == 0)
        return tr("%1 has no sizes: it is as large as its content makes it").arg(label);
    if (spec.mask >= 0 && info.mostMask < 0)
        return tr("%1 has no masks").arg(label);
    if (spec.columns != 0 && info.mostColumns == 0)
        return tr("%1 has no number of columns to choose").arg(label);
    if (spec.isRectangular && !info.canBeRectangular)
        return tr("%1 has one form; a Data Matrix can be rectangular").arg(label);
    if (spec.hasCheckDigit && !info.hasCheckChoice)
        return tr("%1 leaves no choice of a check digit").arg(label);
    if (spec.charset != CodeCharset::Automatic && !info.hasCharsets)
        return tr("%1 leaves no choice of a character set").arg(label);
    if (spec.hasEscapes && !info.hasControls)
        return tr("%1 has no control characters, so that there is nothing to escape").arg(label);
    return {};
}

// What the encoder makes of the shortest content of all.
QSize symbolSize(CodeKind kind, int version)
{
    const CodeKindInfo &info = infoOf(kind);
    if (version < 1 || version > info.mostVersion)
        return {};
    CodeSpec spec;
    spec.kind = kind;
    spec.content = info.isGs1 ? QStringLiteral("[10]1") : QStringLiteral("1");
    spec.version = version;
    spec.mask = info.mostMask < 0 ? -1 : 0; // whichever, instead of the best of them all
    CodeSymbol symbol;
    QString reason;
    return encodeCode(spec, &symbol, &reason) ? QSize(symbol.columns, symbol.rows) : QSize();
}

bool encodeCode(const CodeSpec &asked, CodeSymbol *symbol, QString *reason)
{
    CodeSpec spec = withOwnOptions(asked);
    CheckedContent content;
    if (!isInRange(spec, reason) ||
        (spec.hasEscapes && !decodeEscapes(asked.content, &spec.content, reason)) ||
        !checkContent(spec, &content, reason))
        return false;
    Encoding encoding;
    encoding.content = content.text.toUtf8();
    encoding.eci = eciOf(spec);
    int result = encodeAnySize(spec, &encoding);
    if (result == ZINT_ERROR_INVALID_DATA && encoding.eci == kEciGb2312) {
        encoding.eci = kEciGb18030;
        result = encodeAnySize(spec, &encoding);
    }
    if (result == ZINT_ERROR_MEMORY) {
        *reason = tr("there is not enough memory");
        return false;
    }
    if (!isMade(result)) {
        *reason = reasonOf(spec, result, encoding.encoder.get());
        return false;
    }
    CodeSymbol made;
    made.kind = spec.kind;
    made.reads = content.reads;
    made.humanText = content.human;
    takeModules(*encoding.encoder, &made);
    *symbol = made;
    return true;
}

} // namespace codekit
