#include <hostkit/text/ShxFontInfo.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSet>
#include <QtCore/QtEndian>

#include <algorithm>

namespace hostkit {

namespace {

constexpr qint64 kMaxBytes = qint64(256) * 1024 * 1024; // what a parser takes
constexpr int kKeywordAt = 11;
constexpr int kShapesHeader = 30;
constexpr int kBigfontHeader = 31;
constexpr int kUnifontHeader = 31;
constexpr int kUnifontInformation = 6; // ascender, descender and four bytes more
constexpr int kLeastInformation = 4;   // ascender and descender count from its end

/** Where a definition stands in the file. */
struct Place
{
    qint64 offset = 0;
    int length = 0;
};

QString hex(int code) { return QStringLiteral("0x%1").arg(code, 4, 16, QLatin1Char('0')); }

/** Takes a font file apart, form by form, and writes down what does not fit. */
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::ShxFontInfo)

public:
    Reader(const QByteArray &image, ShxFontInfo *result) : m_bytes(image), m_info(*result) {}

    /** False for what is no stroke font. */
    bool read();

    static QString noFont() { return tr("is no stroke font"); }
    static QString tooLarge() { return tr("is too large for a stroke font"); }
    static QString unreadable(const QString &why) { return tr("cannot be read: %1").arg(why); }

private:
    bool hasKeyword(const char *word) const { return m_bytes.mid(kKeywordAt).startsWith(word); }
    int u8(qint64 at) const { return static_cast<uchar>(m_bytes[static_cast<int>(at)]); }
    int u16(qint64 at) const { return u8(at) | u8(at + 1) << 8; }
    bool holds(const Place &place) const
    {
        return place.offset >= 0 && place.offset + place.length <= m_bytes.size();
    }
    void tell(const QString &problem);
    bool hasHeader(int size);
    int recordsThatFit(qint64 index, int count, int size);
    void readShapes();
    void readBigfont();
    void readUnifont();
    void readInformation(const Place &place);
    void addGlyph(int code, const Place &place);
    QString nameAt(const Place &place) const;

    const QByteArray &m_bytes;
    ShxFontInfo &m_info;
    QSet<int> m_codes;
};

bool Reader::read()
{
    if (hasKeyword("unifont"))
        readUnifont();
    else if (hasKeyword("bigfont"))
        readBigfont();
    else if (hasKeyword("shapes"))
        readShapes();
    return m_info.type != SHX_TYPE::SHX_NONE;
}

void Reader::tell(const QString &problem)
{
    if (m_info.problemCount++ < ShxFontInfo::kMaxProblems)
        m_info.problems.append(problem);
}

bool Reader::hasHeader(int size) { return m_bytes.size() >= size; }

int Reader::recordsThatFit(qint64 index, int count, int size)
{
    const int fitting = static_cast<int>(qMax<qint64>(0, m_bytes.size() - index) / size);
    if (fitting < count)
        tell(tr("the index ends after %1 of %2 records").arg(fitting).arg(count));
    return qMin(fitting, count);
}

QString Reader::nameAt(const Place &place) const
{
    if (!holds(place))
        return {};
    const QByteArray definition = m_bytes.mid(static_cast<int>(place.offset), place.length);
    return QString::fromLatin1(definition.left(qMax(0, definition.indexOf('\0'))));
}

/** The definition whose last four bytes begin with ascender and descender. */
void Reader::readInformation(const Place &place)
{
    m_info.name = nameAt(place);
    if (place.length < kLeastInformation || !holds(place)) {
        tell(tr("the font information is cut short"));
        return;
    }
    const qint64 end = place.offset + place.length;
    m_info.above = u8(end - 4);
    const int descender = u8(end - 3);
    if (m_info.above == 0)
        m_info.above = descender;
    m_info.below = m_info.isBig() ? 0 : descender;
    if (m_info.above == 0)
        tell(tr("the ascender is 0: the font has no size"));
}

void Reader::addGlyph(int code, const Place &place)
{
    ShxGlyphInfo glyph;
    glyph.code = code;
    glyph.length = place.length;
    glyph.name = nameAt(place);
    const bool isFirst = !m_codes.contains(code);
    m_codes.insert(code);
    glyph.usable = code != 0 && isFirst && holds(place);
    m_info.glyphs.append(glyph);
    if (code == 0)
        return;
    if (!isFirst)
        tell(tr("glyph %1 stands there once more, this one is never drawn").arg(hex(code)));
    if (!holds(place))
        tell(tr("glyph %1 reaches beyond the end of the file").arg(hex(code)));
    else if (m_bytes.mid(static_cast<int>(place.offset), place.length).indexOf('\0') < 0)
        tell(tr("glyph %1 is nothing but a name without an end").arg(hex(code)));
}

void Reader::readShapes()
{
    if (!hasHeader(kShapesHeader + 2))
        return;
    const int count = u16(kShapesHeader - 2);
    const bool hasInformation = u16(kShapesHeader) == 0;
    m_info.type = hasInformation ? SHX_TYPE::SHX_SHAPES : SHX_TYPE::SHX_SHAPE_ONLY;
    m_info.above = hasInformation ? 0 : 4;
    const int fitting = recordsThatFit(kShapesHeader, count, 4);
    Place place{kShapesHeader + 4LL * count, 0};
    for (int i = 0; i < fitting; ++i) {
        const qint64 record = kShapesHeader + 4LL * i;
        place.length = u16(record + 2);
        if (i == 0 && hasInformation)
            readInformation(place);
        addGlyph(u16(record), place);
        place.offset += place.length;
    }
}

void Reader::readBigfont()
{
    if (!hasHeader(kBigfontHeader))
        return;
    m_info.type = SHX_TYPE::SHX_BIGFONT;
    const int count = u16(kBigfontHeader - 4);
    const int rangeCount = u16(kBigfontHeader - 2);
    const int ranges = recordsThatFit(kBigfontHeader, rangeCount, 4);
    for (int i = 0; i < ranges; ++i) {
        const qint64 at = kBigfontHeader + 4LL * i;
        m_info.ranges.append({u8(at), u8(at + 2)});
        if (u8(at) > u8(at + 2))
            tell(tr("range %1 of lead bytes is empty").arg(i + 1));
    }
    const qint64 index = kBigfontHeader + 4LL * rangeCount;
    const int fitting = recordsThatFit(index, count, 8);
    for (int i = 0; i < fitting; ++i) {
        const qint64 record = index + 8LL * i;
        const Place place{u16(record + 4) | qint64(u16(record + 6)) << 16, u16(record + 2)};
        if (i == 0)
            readInformation(place);
        addGlyph(u16(record), place);
    }
}

void Reader::readUnifont()
{
    const int nameEnd = m_bytes.indexOf('\0', kUnifontHeader);
    if (nameEnd < 0 || !hasHeader(nameEnd + 1 + kUnifontInformation))
        return;
    m_info.type = SHX_TYPE::SHX_UNIFONT;
    m_info.name =
        QString::fromLatin1(m_bytes.mid(kUnifontHeader, nameEnd - kUnifontHeader)).trimmed();
    m_info.below = u8(nameEnd + 2);
    m_info.above = u8(nameEnd + 1) != 0 ? u8(nameEnd + 1) : m_info.below;
    const int count = u16(25);
    qint64 record = nameEnd + 1 + kUnifontInformation;
    for (int i = 0; i < count; ++i) {
        if (record + 4 > m_bytes.size()) {
            tell(tr("the index ends after %1 of %2 records").arg(i).arg(count));
            return;
        }
        const Place place{record + 4, u16(record + 2)};
        addGlyph(u16(record), place);
        record = place.offset + place.length;
    }
}

} // namespace

int ShxFontInfo::usableGlyphs() const
{
    return static_cast<int>(std::count_if(glyphs.begin(), glyphs.end(),
                                          [](const ShxGlyphInfo &glyph) { return glyph.usable; }));
}

QString ShxFontInfo::form() const
{
    switch (type) {
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        return QStringLiteral("shapes");
    case SHX_TYPE::SHX_UNIFONT:
        return QStringLiteral("unifont");
    case SHX_TYPE::SHX_BIGFONT:
        return QStringLiteral("bigfont");
    case SHX_TYPE::SHX_NONE:
        break;
    }
    return {};
}

bool readShxFontInfo(const QString &path, ShxFontInfo *info, Failure *failure)
{
    *info = ShxFontInfo();
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) // a pipe might never end
        return fail(failure, Failure::Kind::OtherFormat, Reader::noFont());
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(failure, Failure::Kind::CannotRead, Reader::unreadable(file.errorString()));
    if (file.size() > kMaxBytes)
        return fail(failure, Failure::Kind::CannotRead, Reader::tooLarge());
    return readShxFontInfo(file.readAll(), info, failure);
}

bool readShxFontInfo(const QByteArray &image, ShxFontInfo *info, Failure *failure)
{
    *info = ShxFontInfo();
    return Reader(image, info).read() ||
           fail(failure, Failure::Kind::OtherFormat, Reader::noFont());
}

QVector<ShxFontFileInfo> listShxFonts(const QStringList &folders)
{
    QVector<ShxFontFileInfo> fonts;
    for (const QString &folder : folders) {
        // As the font manager lists them, but by name.
        const QDir dir(folder);
        const QStringList names = dir.entryList(
            {QStringLiteral("*.shx")}, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
        for (const QString &name : names) {
            ShxFontFileInfo font{name, folder, {}};
            if (readShxFontInfo(dir.filePath(name), &font.info, nullptr))
                fonts.append(font);
        }
    }
    return fonts;
}

} // namespace hostkit
