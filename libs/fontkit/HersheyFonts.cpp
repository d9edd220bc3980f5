#include "HersheyFonts.h"

#include <algorithm>
#include <cmath>

namespace fontkit {

namespace {

constexpr int kFirstCode = 32;
constexpr int kLastCode = 126;
constexpr int kDelete = 127;
constexpr int kBaseLine = 9; // in the data, y downward

enum class Layout { Latin, Greek, Cyrillic };

/** What a font is made from. */
struct Plan
{
    const char *name;
    const char *title;
    const char *data; ///< all that is not a letter of another alphabet
    Layout layout;
    const char *letters; ///< letters of another alphabet
    /** For ^, _ and `, where the data has an arrow and a short raised line; null: from the data. */
    const char *marks;
};

const Plan kPlans[] = {
    {"hershey-simplex", "Hershey Simplex", "futural", Layout::Latin, nullptr, nullptr},
    {"hershey-duplex", "Hershey Duplex", "futuram", Layout::Latin, nullptr, nullptr},
    {"hershey-complex", "Hershey Complex", "timesr", Layout::Latin, nullptr, nullptr},
    {"hershey-complex-italic", "Hershey Complex Italic", "timesi", Layout::Latin, nullptr, nullptr},
    {"hershey-triplex", "Hershey Triplex", "timesrb", Layout::Latin, nullptr, nullptr},
    {"hershey-triplex-italic", "Hershey Triplex Italic", "timesib", Layout::Latin, nullptr,
     nullptr},
    {"hershey-script", "Hershey Script", "scripts", Layout::Latin, nullptr, "futural"},
    {"hershey-script-complex", "Hershey Complex Script", "scriptc", Layout::Latin, nullptr,
     "timesi"},
    {"hershey-gothic", "Hershey Gothic English", "gothiceng", Layout::Latin, nullptr, nullptr},
    {"hershey-gothic-german", "Hershey Gothic German", "gothicger", Layout::Latin, nullptr,
     nullptr},
    {"hershey-gothic-italian", "Hershey Gothic Italian", "gothicita", Layout::Latin, nullptr,
     nullptr},
    {"hershey-greek", "Hershey Greek", "futural", Layout::Greek, "greeks", nullptr},
    {"hershey-greek-complex", "Hershey Complex Greek", "timesr", Layout::Greek, "greekc", nullptr},
    {"hershey-cyrillic", "Hershey Cyrillic", "timesr", Layout::Cyrillic, "cyrilc_1", nullptr},
};

/** Where a character comes from. */
struct Source
{
    QByteArray data;
    int code = 0;           ///< its place in the data
    bool isReduced = false; ///< a capital that serves as small letter
};

bool fail(QString *error, const QString &what)
{
    if (error != nullptr)
        *error = what;
    return false;
}

const Plan *planOf(const QString &fileName)
{
    for (const Plan &plan : kPlans) {
        if (fileName == QLatin1String(plan.name) + QLatin1String(".shx"))
            return &plan;
    }
    return nullptr;
}

int lastCodeOf(const Plan &plan) { return plan.layout == Layout::Cyrillic ? kDelete : kLastCode; }

/** Greek data has the alphabet at A to X and a to x. */
Source greekSource(const Plan &plan, int code)
{
    static const QByteArray order = QByteArrayLiteral("ABGDEZHQIKLMNXOPRSTUFCYW");
    const bool isSmall = code >= 'a' && code <= 'z';
    const int letter = order.indexOf(static_cast<char>(isSmall ? code - 'a' + 'A' : code));
    if (letter < 0)
        return {plan.data, code};
    return {plan.letters, (isSmall ? 'a' : 'A') + letter};
}

/**
 * Cyrillic data has the first 26 letters of the alphabet at A to Z and a to z; the last six are in
 * another file, at places of their own, and one of them as a capital only.
 */
Source cyrillicSource(const Plan &plan, int code)
{
    constexpr int kCapitals = 64;
    constexpr int kSmall = 96;
    constexpr int kLettersInOrder = 26;
    // The place in the alphabet, from 0, of the letters at 64 to 95.
    static const int order[32] = {30, 0,  1,  22, 4,  5,  20, 3, 21, 8,  9, 10, 11, 12, 13, 14,
                                  15, 31, 16, 17, 18, 19, 6,  2, 28, 27, 7, 24, 29, 25, 23, 26};
    static const char lastCapitals[] = "]$_CU^";
    static const char lastSmall[] = "|&~Cu}";
    static const QByteArray lastLetters = QByteArrayLiteral("cyrillic");
    if (code < kCapitals)
        return {plan.data, code};
    const bool isSmall = code >= kSmall;
    const int letter = order[code - (isSmall ? kSmall : kCapitals)];
    if (letter < kLettersInOrder)
        return {plan.letters, (isSmall ? 'a' : 'A') + letter};
    const char place = (isSmall ? lastSmall : lastCapitals)[letter - kLettersInOrder];
    return {lastLetters, place, isSmall && place == 'C'};
}

Source sourceOf(const Plan &plan, int code)
{
    switch (plan.layout) {
    case Layout::Greek:
        return greekSource(plan, code);
    case Layout::Cyrillic:
        return cyrillicSource(plan, code);
    case Layout::Latin:
        break;
    }
    const bool isMark = code >= '^' && code <= '`';
    return {isMark && plan.marks != nullptr ? plan.marks : plan.data, code};
}

/** Two thirds: what small letters have of the height of capitals. */
int reduced(int length) { return static_cast<int>(std::lround(length * 2.0 / 3.0)); }

HersheyCharacter characterOf(const HersheyGlyph &glyph, bool isReduced)
{
    const auto sized = [isReduced](int length) { return isReduced ? reduced(length) : length; };
    HersheyCharacter character;
    character.advance = sized(glyph.right - glyph.left);
    for (const QVector<QPoint> &stroke : glyph.strokes) {
        QVector<QPoint> points;
        for (const QPoint &point : stroke)
            points.append({sized(point.x() - glyph.left), sized(kBaseLine - point.y())});
        character.strokes.append(points);
    }
    return character;
}

/** How far strokes reach below the base line. */
int depthOf(const GridStrokes &strokes)
{
    int depth = 0;
    for (const QVector<QPoint> &stroke : strokes) {
        for (const QPoint &point : stroke)
            depth = std::max(depth, -point.y());
    }
    return depth;
}

} // namespace

HersheyFonts::HersheyFonts(const DataFolder &dataFolder) : m_folder(dataFolder) {}

QStringList HersheyFonts::fileNames()
{
    QStringList names;
    for (const Plan &plan : kPlans)
        names.append(QLatin1String(plan.name) + QLatin1String(".shx"));
    return names;
}

bool HersheyFonts::make(const QString &fileName, FontFile *font, QString *error)
{
    const Plan *plan = planOf(fileName);
    if (plan == nullptr)
        return fail(error, QStringLiteral("%1: no such font").arg(fileName));
    FontFile made;
    int depth = 0;
    for (int code = kFirstCode; code <= lastCodeOf(*plan); ++code) {
        HersheyCharacter drawn;
        if (!character(fileName, code, &drawn, error))
            return false;
        const GlyphProgram program = encodeStrokes(drawn.strokes, drawn.advance);
        if (!program.error().isEmpty())
            return fail(error, QStringLiteral("%1: %2").arg(fileName, program.error()));
        GlyphDefinition glyph;
        glyph.code = static_cast<quint16>(code);
        glyph.program = program.bytes();
        made.glyphs.push_back(glyph);
        depth = std::max(depth, depthOf(drawn.strokes));
    }
    made.information->name = plan->title;
    made.information->above = kCapHeight;
    made.information->below = static_cast<quint8>(depth);
    *font = made;
    return true;
}

bool HersheyFonts::character(const QString &fileName, int code, HersheyCharacter *result,
                             QString *error)
{
    const Plan *plan = planOf(fileName);
    if (plan == nullptr || code < kFirstCode || code > lastCodeOf(*plan))
        return fail(error, QStringLiteral("%1: no such character").arg(fileName));
    const Source source = sourceOf(*plan, code);
    const QVector<HersheyGlyph> *glyphs = glyphsOf(source.data, error);
    if (glyphs == nullptr)
        return false;
    const int place = source.code - kFirstCode;
    if (place >= glyphs->size())
        return fail(error, QStringLiteral("%1: only %2 characters")
                               .arg(m_folder.shown(source.data + ".jhf"))
                               .arg(glyphs->size()));
    *result = characterOf(glyphs->at(place), source.isReduced);
    return true;
}

const QVector<HersheyGlyph> *HersheyFonts::glyphsOf(const QByteArray &dataName, QString *error)
{
    const auto known = m_loaded.constFind(dataName);
    if (known != m_loaded.constEnd())
        return &known.value();
    const QByteArray fileName = dataName + ".jhf";
    const auto content = m_folder.read(fileName);
    HersheyReader reader;
    QString problem;
    if (!content)
        problem = QStringLiteral("cannot be read");
    else if (!reader.read(*content))
        problem = QStringLiteral("no Hershey font");
    else if (!reader.problems().isEmpty())
        problem = reader.problems().first();
    if (!problem.isEmpty()) {
        fail(error, QStringLiteral("%1: %2").arg(m_folder.shown(fileName), problem));
        return nullptr;
    }
    return &m_loaded.insert(dataName, reader.glyphs()).value();
}

} // namespace fontkit
