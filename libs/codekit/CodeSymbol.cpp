#include <codekit/CodeSymbol.h>

#include <codekit/CodeContent_p.h>

#include <QtCore/QCoreApplication>

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

bool hasColumns(CodeKind kind) { return kind == CodeKind::Pdf417 || kind == CodeKind::MicroPdf417; }

/** Whether a check digit may be there or not. */
bool hasCheckChoice(CodeKind kind)
{
    return kind == CodeKind::Code39 || kind == CodeKind::Code39Extended ||
           kind == CodeKind::Codabar || kind == CodeKind::Interleaved25;
}

bool hasMasks(CodeKind kind) { return kind == CodeKind::Qr || kind == CodeKind::MicroQr; }

bool isBeyondLatin1(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0xFF; });
}

/** Where each kind has its options in the encoder. */
void setOptions(const CodeSpec &spec, zint_symbol *symbol)
{
    constexpr int kEciUtf8 = 26;
    constexpr int kEciGb18030 = 32;
    const CodeKindInfo &info = infoOf(spec.kind);
    symbol->symbology = symbologyOf(spec);
    symbol->input_mode = info.isGs1 ? GS1_MODE : UNICODE_MODE;
    if (spec.hasEscapes)
        symbol->input_mode |= ESCAPE_MODE;
    // Without one the encoder takes a character set that readers must guess.
    const bool needsUtf8 = !info.isLinear && isBeyondLatin1(spec.content);
    if (spec.charset == CodeCharset::Gbk)
        symbol->eci = kEciGb18030;
    else if (spec.charset == CodeCharset::Utf8 || needsUtf8)
        symbol->eci = kEciUtf8;
    if (spec.level > 0)
        symbol->option_1 = spec.kind == CodeKind::Pdf417 ? spec.level - 1 : spec.level;
    if (spec.version > 0)
        symbol->option_2 = spec.version;
    if (spec.columns > 0)
        symbol->option_2 = spec.columns;
    if (spec.mask >= 0 && hasMasks(spec.kind))
        symbol->option_3 = (spec.mask + 1) << 8;
    if (symbol->symbology == BARCODE_DATAMATRIX && spec.version == 0)
        symbol->option_3 = DM_SQUARE;
    if (spec.hasCheckDigit)
        symbol->option_2 = 1;
}

bool isInRange(const CodeSpec &spec, QString *reason)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const auto refuse = [&](const QString &what, int value, int least, int most) {
        *reason = tr("%1 of %2 is %3 to %4, not %5")
                      .arg(what, QLatin1String(info.label))
                      .arg(least)
                      .arg(most)
                      .arg(value);
        return false;
    };
    if (spec.level != 0 && (spec.level < info.leastLevel || spec.level > info.mostLevel) &&
        info.mostLevel > 0)
        return refuse(tr("the error correction"), spec.level, info.leastLevel, info.mostLevel);
    if (spec.version != 0 && info.mostVersion > 0 &&
        (spec.version < 1 || spec.version > info.mostVersion))
        return refuse(tr("the size"), spec.version, 1, info.mostVersion);
    if (spec.mask > 7 || (spec.kind == CodeKind::MicroQr && spec.mask > 3))
        return refuse(tr("the mask"), spec.mask, 0, spec.kind == CodeKind::MicroQr ? 3 : 7);
    return true;
}

/** The options that a kind has not are as if they were not set. */
CodeSpec withOwnOptions(CodeSpec spec)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    if (info.mostLevel == 0)
        spec.level = 0;
    if (info.mostVersion == 0)
        spec.version = 0;
    if (!hasColumns(spec.kind))
        spec.columns = 0;
    if (!hasCheckChoice(spec.kind))
        spec.hasCheckDigit = false;
    if (info.isLinear)
        spec.charset = CodeCharset::Automatic;
    if (info.isGs1)
        spec.hasEscapes = false;
    if (symbologyOf(spec) != BARCODE_DATAMATRIX)
        spec.isRectangular = false;
    return spec;
}

QString reasonOf(const CodeSpec &spec, int result, const zint_symbol &symbol)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const QString label = QLatin1String(info.label);
    switch (result) {
    case ZINT_ERROR_TOO_LONG:
        if (spec.version > 0 || spec.isRectangular)
            return tr("the content is too long for this size of %1: choose a larger one")
                .arg(label);
        return tr("the content is too long for %1: %2").arg(label, limitsOf(spec.kind));
    case ZINT_ERROR_INVALID_CHECK:
        return tr("a check digit is wrong");
    case ZINT_WARN_INVALID_OPTION:
    case ZINT_ERROR_INVALID_OPTION:
        return tr("%1 cannot be made with these settings").arg(label);
    case ZINT_ERROR_INVALID_DATA:
        return tr("%1 cannot hold this content: %2").arg(label, limitsOf(spec.kind));
    default:
        return tr("%1 cannot be made of this content (%2)")
            .arg(label, QString::fromUtf8(symbol.errtxt));
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

void takeModules(const zint_symbol &made, CodeSymbol *symbol)
{
    symbol->columns = made.width;
    symbol->rows = made.rows;
    symbol->dark = QBitArray(made.rows * made.width);
    symbol->rowModules.clear();
    for (int row = 0; row < made.rows; ++row) {
        symbol->rowModules.append(rowHeight(made, row));
        for (int column = 0; column < made.width; ++column) {
            const bool isDark = (made.encoded_data[row][column / 8] >> (column % 8)) & 1;
            symbol->dark.setBit(row * made.width + column, isDark);
        }
    }
}

/** One try; the encoder's result, with its words in `symbol` where it fails. */
int encodeOnce(const CodeSpec &spec, const QByteArray &content, zint_symbol *symbol)
{
    setOptions(spec, symbol);
    return ZBarcode_Encode(symbol, reinterpret_cast<const unsigned char *>(content.constData()),
                           content.size());
}

// An option that the encoder puts aside, or a code against its standard, is none of ours.
bool isMade(int result) { return result == 0 || result == ZINT_WARN_USES_ECI; }

/** Tries the sizes of a Data Matrix that are not square, from the smallest up. */
int encodeRectangular(CodeSpec spec, const QByteArray &content, Encoder *encoder)
{
    constexpr int kFirstRectangle = 25; // 8 x 18; the last of six is 16 x 48
    int result = ZINT_ERROR_TOO_LONG;
    for (spec.version = kFirstRectangle; spec.version <= infoOf(spec.kind).mostVersion;
         ++spec.version) {
        encoder->reset(ZBarcode_Create());
        if (!*encoder)
            return ZINT_ERROR_MEMORY;
        result = encodeOnce(spec, content, encoder->get());
        if (result != ZINT_ERROR_TOO_LONG && result != ZINT_WARN_INVALID_OPTION)
            break;
    }
    return result;
}

} // namespace

QString lackingOption(const CodeSpec &spec)
{
    const CodeKindInfo &info = infoOf(spec.kind);
    const QString label = QLatin1String(info.label);
    if (spec.level != 0 && info.mostLevel == 0)
        return tr("%1 has no levels of error correction").arg(label);
    if (spec.version != 0 && info.mostVersion == 0)
        return tr("%1 has no sizes: it is as large as its content makes it").arg(label);
    if (spec.mask >= 0 && !hasMasks(spec.kind))
        return tr("%1 has no masks").arg(label);
    if (spec.columns != 0 && !hasColumns(spec.kind))
        return tr("%1 has no number of columns to choose").arg(label);
    if (spec.isRectangular && symbologyOf(spec) != BARCODE_DATAMATRIX)
        return tr("%1 has one form; a Data Matrix can be rectangular").arg(label);
    if (spec.hasCheckDigit && !hasCheckChoice(spec.kind))
        return tr("%1 leaves no choice of a check digit").arg(label);
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
    spec.mask = 0;
    CodeSymbol symbol;
    QString reason;
    return encodeCode(spec, &symbol, &reason) ? QSize(symbol.columns, symbol.rows) : QSize();
}

bool encodeCode(const CodeSpec &asked, CodeSymbol *symbol, QString *reason)
{
    const CodeSpec spec = withOwnOptions(asked);
    CheckedContent content;
    if (!isInRange(spec, reason) || !checkContent(spec, &content, reason))
        return false;
    const QByteArray bytes = content.text.toUtf8();
    Encoder encoder(ZBarcode_Create());
    if (!encoder) {
        *reason = tr("there is not enough memory");
        return false;
    }
    int result = ZINT_ERROR_TOO_LONG;
    if (bytes.size() <= ZINT_MAX_DATA_LEN) {
        result = spec.isRectangular && spec.version == 0 ? encodeRectangular(spec, bytes, &encoder)
                                                         : encodeOnce(spec, bytes, encoder.get());
    }
    if (!isMade(result)) {
        *reason = reasonOf(spec, result, *encoder);
        return false;
    }
    CodeSymbol made;
    made.kind = spec.kind;
    made.reads = content.reads;
    made.humanText = content.human;
    takeModules(*encoder, &made);
    *symbol = made;
    return true;
}

} // namespace codekit
