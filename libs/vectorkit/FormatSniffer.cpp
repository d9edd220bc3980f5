#include <vectorkit/FormatSniffer_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QtEndian>

#include <optional>

namespace vectorkit {

namespace {

/** How far into a file a format is looked for. */
constexpr int kSniffedBytes = 65536;

const char kByteOrderMark[] = "\xEF\xBB\xBF";

bool isBlank(char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

bool isLetter(char byte) { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); }

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

/** The first bytes as one-byte text: without a byte order mark, two-byte text halved. */
QByteArray readableStart(const QByteArray &start)
{
    QByteArray head = start.left(kSniffedBytes);
    if (head.startsWith(kByteOrderMark))
        return head.mid(3);
    if (!head.startsWith("\xFF\xFE") && !head.startsWith("\xFE\xFF"))
        return head;
    QByteArray halved;
    for (int i = head.startsWith("\xFF\xFE") ? 2 : 3; i < head.size(); i += 2)
        halved.append(head[i]);
    return halved;
}

bool isXml(const QByteArray &text) { return text.trimmed().startsWith('<'); }

/** The name of the first element, without its prefix; empty when there is none. */
QByteArray rootElement(const QByteArray &text)
{
    int at = 0;
    while ((at = text.indexOf('<', at)) >= 0) {
        const bool isComment = text.mid(at, 4) == "<!--";
        if (!isComment && at + 1 < text.size() && isLetter(text[at + 1])) {
            int end = at + 1;
            while (end < text.size() && !isBlank(text[end]) && text[end] != '>' && text[end] != '/')
                ++end;
            return text.mid(at + 1, end - at - 1).split(':').last();
        }
        const int next = isComment ? text.indexOf("-->", at) : at + 1;
        if (next < 0)
            return {};
        at = next;
    }
    return {};
}

bool isSvg(const QByteArray &text) { return isXml(text) && rootElement(text) == "svg"; }

/** The next line that is not blank, without its ends; `at` moves past it. */
QByteArray nextFilledLine(const QByteArray &text, int *at)
{
    QByteArray line;
    while (*at < text.size() && line.isEmpty()) {
        const int begin = *at;
        while (*at < text.size() && text[*at] != '\n' && text[*at] != '\r')
            ++*at;
        line = text.mid(begin, *at - begin).trimmed();
        ++*at;
    }
    return line;
}

/** Pairs of lines, the first a group code, comments (999) before the first section. */
bool isTextDxf(const QByteArray &text)
{
    int at = 0;
    while (at < text.size()) {
        bool isCode = false;
        const int code = nextFilledLine(text, &at).toInt(&isCode);
        const QByteArray value = nextFilledLine(text, &at);
        if (!isCode || (code != 0 && code != 999))
            return false;
        if (code == 0)
            return value.toUpper() == "SECTION";
    }
    return false;
}

bool isDxf(const QByteArray &text)
{
    return text.startsWith("AutoCAD Binary DXF\r\n") || isTextDxf(text);
}

/** The commands of HP-GL and HP-GL/2, two letters each. */
bool isCommand(char first, char second)
{
    static const QByteArray kCommands =
        "AA AC AD AF AH AP AR AS AT BF BL BP BR BZ CA CC CF CI CM CO CP CS CT CV DC DF DI DL DP DR "
        "DS DT DV EA EC EP ER ES EW FI FN FP FR FS FT GC GM IM IN IP IR IV IW KY LA LB LM LO LT MC "
        "MG MT NP NR OA OC OD OE OF OG OH OI OK OL OO OP OS OT OW PA PB PC PD PE PG PM PP PR PS PT "
        "PU PW QL RA RF RO RP RQ RR RT SA SB SC SD SI SL SM SP SR SS ST SV TD TL TR UC UF UL VN VS "
        "WD WG WU XT YT ";
    const char name[] = {static_cast<char>(first & ~0x20), static_cast<char>(second & ~0x20), ' ',
                         '\0'};
    const int at = kCommands.indexOf(name);
    return at >= 0 && at % 3 == 0;
}

/** Past an escape sequence that begins at `at`. */
int afterEscape(const QByteArray &text, int at)
{
    ++at;
    if (at >= text.size())
        return at;
    if (text[at] == '.') { // device control: a letter, and parameters up to a colon for most
        at += 2;
        int end = at;
        while (end < text.size() && (isDigit(text[end]) || text[end] == ';'))
            ++end;
        return end < text.size() && text[end] == ':' ? end + 1 : at;
    }
    if (isLetter(text[at]))
        return at + 1;
    while (at < text.size() && !(text[at] >= '@' && text[at] <= '^'))
        ++at;
    return at + 1;
}

int nextCommand(const QByteArray &text, int at)
{
    while (at < text.size() && text[at] != ';' && text[at] != '\n')
        ++at;
    return at;
}

/** Past what follows the name of a command: a label to its end, numbers otherwise. */
int afterParameters(const QByteArray &text, int at, const QByteArray &name)
{
    const char *end = name == "LB" || name == "BL" ? "\x03" : name == "PE" ? ";" : nullptr;
    if (end) {
        const int stop = text.indexOf(*end, at);
        return stop < 0 ? text.size() : stop + 1;
    }
    if (name == "CO") // words
        return nextCommand(text, at);
    while (at < text.size() && (isDigit(text[at]) || isBlank(text[at]) || text[at] == ',' ||
                                text[at] == '.' || text[at] == '-' || text[at] == '+'))
        ++at;
    return at;
}

/** A machine's program: most of its lines are words of a letter and a number. */
bool isGcode(const QByteArray &text)
{
    int lines = 0;
    int words = 0;
    for (const QByteArray &raw : text.left(4096).split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty() || line[0] == ';' || line[0] == '(' || line[0] == '%')
            continue;
        ++lines;
        const char first = static_cast<char>(line[0] & ~0x20);
        if (line.size() > 1 && QByteArray("GMNTXYZSF").contains(first) &&
            (isDigit(line[1]) || line[1] == '-' || line[1] == '.'))
            ++words;
    }
    return words > 0 && words * 2 > lines;
}

bool isPlotterOfOtherMake(const QByteArray &text)
{
    const int at = text.indexOf(";:");
    if (at < 0 || at > 1024)
        return false;
    const QByteArray rest = text.mid(at + 2, 16).simplified();
    return !rest.isEmpty() && QByteArray("HAEDULPRVWO").contains(rest[0]);
}

struct Foreign
{
    const char *what;
    const char *advice;
};

/** Of a kind that its first bytes name. */
struct Magic
{
    QByteArray bytes;
    int offset;
    Foreign kind;
};

const char kPicture[] = QT_TRANSLATE_NOOP(
    "vectorkit", "Pixels have no outlines: trace it in a drawing program and save that as SVG.");
const char kSaveDrawing[] = QT_TRANSLATE_NOOP(
    "vectorkit", "Open it in the program it comes from and save it as SVG or DXF.");
const char kSaveDxf[] =
    QT_TRANSLATE_NOOP("vectorkit", "Save it as DXF in the program it comes from.");
const char kProject[] =
    QT_TRANSLATE_NOOP("vectorkit", "Make a flat view of it in its program and save that as DXF.");
const char kUnpack[] =
    QT_TRANSLATE_NOOP("vectorkit", "Unpack it and take the drawing that is inside.");

const QVector<Magic> &magics()
{
    static const QVector<Magic> kMagics{
        {"\x89PNG", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a PNG picture."), kPicture}},
        {"\xFF\xD8\xFF", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a JPEG picture."), kPicture}},
        {"GIF8", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a GIF picture."), kPicture}},
        {"WEBP", 8, {QT_TRANSLATE_NOOP("vectorkit", "This is a WebP picture."), kPicture}},
        {QByteArray("II*\0", 4),
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a TIFF picture."), kPicture}},
        {QByteArray("MM\0*", 4),
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a TIFF picture."), kPicture}},
        {"CDR", 8, {QT_TRANSLATE_NOOP("vectorkit", "This is a CDR drawing."), kSaveDrawing}},
        {"AC10", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a DWG drawing."), kSaveDxf}},
        {"8BPS", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a PSD picture."), kPicture}},
        {" EMF", 40, {QT_TRANSLATE_NOOP("vectorkit", "This is a Windows metafile."), kSaveDrawing}},
        {"\xD7\xCD\xC6\x9A",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a Windows metafile."), kSaveDrawing}},
        {"\xD0\xCF\x11\xE0",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a document of an office or CAD program."),
          kSaveDrawing}},
        {"ISO-10303-21",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a STEP model, a body in space."), kProject}},
        {"PK\x03\x04", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a ZIP archive."), kUnpack}},
        {"Rar!", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a RAR archive."), kUnpack}},
        {"7z\xBC\xAF", 0, {QT_TRANSLATE_NOOP("vectorkit", "This is a 7z archive."), kUnpack}},
        {"\x1F\x8B",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is compressed (gzip), as .svgz files are."),
          kUnpack}},
        {"%!",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is PostScript (PS or EPS)."), kSaveDrawing}},
        {"\xC5\xD0\xD3\xC6",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is PostScript (PS or EPS)."), kSaveDrawing}},
        {"%FS",
         0,
         {QT_TRANSLATE_NOOP("vectorkit", "This is a Gerber file of a circuit board."),
          QT_TRANSLATE_NOOP("vectorkit",
                            "Plot the layer as DXF, SVG or HP-GL in the board program.")}},
    };
    return kMagics;
}

const Magic *magicOf(const QByteArray &text)
{
    for (const Magic &magic : magics()) {
        if (text.mid(magic.offset, magic.bytes.size()) == magic.bytes)
            return &magic;
    }
    return nullptr;
}

/** A program's own format that is packed as an archive, told by the files in it. */
std::optional<Foreign> packedKindOf(const QByteArray &text)
{
    if (!text.startsWith("PK\x03\x04"))
        return std::nullopt;
    if (text.contains("[Content_Types].xml") || text.contains("mimetypeapplication/vnd.oasis"))
        return Foreign{
            QT_TRANSLATE_NOOP("vectorkit", "This is a document of an office program."),
            QT_TRANSLATE_NOOP("vectorkit",
                              "Copy the drawing in it into a drawing program and save it as SVG.")};
    if (text.contains("content/root.dat") || text.contains("x-vnd.corel"))
        return Foreign{QT_TRANSLATE_NOOP("vectorkit", "This is a CDR drawing."), kSaveDrawing};
    return std::nullopt;
}

const char kBody[] = QT_TRANSLATE_NOOP("vectorkit", "This is an STL model, a body in space.");

/** A body as bytes: a head of any text, the number of facets, and as many facets. */
bool isBodyInBytes(const QByteArray &file)
{
    constexpr int kHead = 80;
    constexpr int kFacet = 50;
    constexpr int kCount = int(sizeof(quint32));
    if (file.size() < kHead + kCount)
        return false;
    const auto facets = qFromLittleEndian<quint32>(file.constData() + kHead);
    return facets > 0 && file.size() == kHead + kCount + qint64(facets) * kFacet;
}

Foreign foreignOf(const QByteArray &text)
{
    if (text.startsWith("%PDF")) {
        return text.contains("Illustrator")
                   ? Foreign{QT_TRANSLATE_NOOP("vectorkit", "This is a PDF from Illustrator."),
                             QT_TRANSLATE_NOOP("vectorkit", "Save it as SVG.")}
                   : Foreign{QT_TRANSLATE_NOOP("vectorkit", "This is a PDF document."),
                             QT_TRANSLATE_NOOP("vectorkit",
                                               "Open it in a drawing program and save it as SVG.")};
    }
    if (text.startsWith("%!") && text.left(1024).contains("Adobe Illustrator"))
        return {QT_TRANSLATE_NOOP("vectorkit", "This is PostScript from Illustrator."),
                QT_TRANSLATE_NOOP("vectorkit", "Save it as SVG.")};
    if (const std::optional<Foreign> packed = packedKindOf(text))
        return *packed;
    if (const Magic *magic = magicOf(text))
        return magic->kind;
    if (text.startsWith("BM") && text.mid(6, 4) == QByteArray(4, '\0'))
        return {QT_TRANSLATE_NOOP("vectorkit", "This is a BMP picture."), kPicture};
    if (text.startsWith("solid") && text.contains("facet normal"))
        return {kBody, kProject};
    if (isXml(text))
        return {QT_TRANSLATE_NOOP("vectorkit", "This is XML or HTML, but no SVG drawing."),
                QT_TRANSLATE_NOOP("vectorkit", "Take the drawing itself: SVG, DXF or HP-GL.")};
    if (isPlotterOfOtherMake(text))
        return {QT_TRANSLATE_NOOP("vectorkit", "This is DMPL, the language of other plotters."),
                QT_TRANSLATE_NOOP("vectorkit",
                                  "Choose HP-GL in the program or driver that writes the file.")};
    if (isGcode(text))
        return {QT_TRANSLATE_NOOP("vectorkit", "This is G-code, the program of a machine."),
                QT_TRANSLATE_NOOP("vectorkit", "Take the drawing it was made from.")};
    return {QT_TRANSLATE_NOOP("vectorkit", "This is none of the drawings that can be read."),
            QT_TRANSLATE_NOOP("vectorkit", "Drawings are read as HP-GL, SVG and DXF.")};
}

} // namespace

bool looksLikeHpgl(const QByteArray &start)
{
    constexpr int kEnough = 100;
    const QByteArray text = start.left(kSniffedBytes);
    int known = 0;
    int other = 0;
    for (int at = 0; at < text.size() && known + other < kEnough;) {
        if (text[at] == '\x1B') {
            at = afterEscape(text, at);
        } else if (text[at] == '#') {
            const int end = text.indexOf('\n', at);
            at = end < 0 ? text.size() : end;
        } else if (static_cast<unsigned char>(text[at]) <= ' ' || text[at] == ';' ||
                   text[at] == ',' || text[at] == ':') {
            ++at;
        } else if (at + 1 < text.size() && isLetter(text[at]) && isLetter(text[at + 1]) &&
                   isCommand(text[at], text[at + 1])) {
            ++known;
            at = afterParameters(text, at + 2, text.mid(at, 2).toUpper());
        } else {
            ++other;
            at = nextCommand(text, at + 1);
        }
    }
    return known > other;
}

VectorFormat formatOf(const QByteArray &start)
{
    const QByteArray text = readableStart(start);
    if (isSvg(text))
        return VectorFormat::Svg;
    if (isDxf(text))
        return VectorFormat::Dxf;
    return !magicOf(text) && looksLikeHpgl(text) ? VectorFormat::Hpgl : VectorFormat::Unknown;
}

ReadFailure foreignKindOf(const QByteArray &start)
{
    const Foreign kind =
        isBodyInBytes(start) ? Foreign{kBody, kProject} : foreignOf(readableStart(start));
    return {ReadFailure::Kind::WrongFormat, QCoreApplication::translate("vectorkit", kind.what),
            QCoreApplication::translate("vectorkit", kind.advice)};
}

} // namespace vectorkit
