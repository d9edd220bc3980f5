#include "CodeText_p.h"
#include "FontSource.h"
#include "GlyphCompiler_p.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace fontkit {

namespace {

constexpr int kMostRecords = 0xFFFF;
constexpr int kLongestDefinition = 0xFFFF;

QString only(const char *form, const char *what)
{
    return QStringLiteral("only a %1 has %2").arg(QLatin1String(form), QLatin1String(what));
}

/** Puts a font together, statement by statement. */
class FontCompiler
{
public:
    FontFile run(const QByteArray &source);

private:
    using Handler = void (FontCompiler::*)(Statement &statement);

    /** A statement outside the glyphs. */
    struct Known
    {
        const char *keyword;
        Handler compile;
        bool isHeader; ///< stands before the glyphs
        bool isOnce;
    };

    static const Known kKnown[];

    void begin(Statement &statement);
    void add(Statement &statement);
    void checkOrder(const Statement &statement, const Known &known);
    void finishFont();
    void finishGlyph();

    void prefix(Statement &statement);
    void version(Statement &statement);
    void name(Statement &statement);
    void above(Statement &statement) { information().above = byte(statement); }
    void below(Statement &statement) { information().below = byte(statement); }
    void modes(Statement &statement) { information().modes = byte(statement); }
    void last(Statement &statement) { information().last = byte(statement); }
    void encoding(Statement &statement);
    void embedding(Statement &statement);
    void unused(Statement &statement);
    void countsInformation(Statement &statement);
    void range(Statement &statement);
    void glyph(Statement &statement);
    void gap(Statement &statement);
    void entry(Statement &statement);
    void empty(Statement &statement);
    void trailing(Statement &statement);

    FontInformation &information();
    void demandForm(const Statement &statement, FontForm form, const char *what) const;
    void countRecord(const Statement &statement);
    int slotOperand(Statement &statement);
    void takeSlot(const Statement &statement, int slot);
    static quint8 byte(Statement &statement)
    {
        return static_cast<quint8>(statement.number(0, 0xFF));
    }

    FontFile m_font;
    bool m_isBodyBegun = false;
    bool m_isInGlyph = false;
    std::set<QByteArray> m_told;
    std::map<int, int> m_lineOfSlot;
    int m_records = 0;
    int m_lastLine = 1;
    int m_gapLine = 0;
    QByteArray m_pendingGap;
    GlyphProgram m_program;
    int m_glyphLine = 0;
};

const FontCompiler::Known FontCompiler::kKnown[] = {
    {"prefix", &FontCompiler::prefix, true, true},
    {"version", &FontCompiler::version, true, true},
    {"name", &FontCompiler::name, true, true},
    {"above", &FontCompiler::above, true, true},
    {"below", &FontCompiler::below, true, true},
    {"modes", &FontCompiler::modes, true, true},
    {"encoding", &FontCompiler::encoding, true, true},
    {"embedding", &FontCompiler::embedding, true, true},
    {"last", &FontCompiler::last, true, true},
    {"unused", &FontCompiler::unused, true, true},
    {"counts-information", &FontCompiler::countsInformation, true, true},
    {"range", &FontCompiler::range, true, false},
    {"glyph", &FontCompiler::glyph, false, false},
    {"gap", &FontCompiler::gap, false, false},
    {"entry", &FontCompiler::entry, false, false},
    {"empty", &FontCompiler::empty, false, false},
    {"trailing", &FontCompiler::trailing, false, false},
};

FontFile FontCompiler::run(const QByteArray &source)
{
    m_font.information = std::nullopt;
    SourceText text(source);
    Statement statement;
    if (!text.next(&statement))
        throw SourceError{1, QStringLiteral("there is no statement")};
    begin(statement);
    while (text.next(&statement))
        add(statement);
    finishFont();
    return m_font;
}

void FontCompiler::begin(Statement &statement)
{
    const QString forms = QStringLiteral("form shapes, form bigfont or form unifont");
    if (statement.keyword() != "form")
        statement.fail(QStringLiteral("the first statement is ") + forms);
    const QByteArray word = statement.word("a form");
    for (const FontForm form : {FontForm::Shapes, FontForm::Bigfont, FontForm::Unifont}) {
        if (word == keywordOf(form)) {
            m_font.form = form;
            return statement.finish();
        }
    }
    statement.fail(shown(word) + QStringLiteral(" is no form: ") + forms);
}

void FontCompiler::add(Statement &statement)
{
    m_lastLine = statement.line;
    const QByteArray keyword = statement.keyword();
    const auto *known =
        std::find_if(std::begin(kKnown), std::end(kKnown),
                     [&](const Known &candidate) { return keyword == candidate.keyword; });
    if (known != std::end(kKnown)) {
        finishGlyph();
        checkOrder(statement, *known);
        (this->*known->compile)(statement);
        statement.finish();
    } else if (m_isInGlyph) {
        compileGlyphStatement(statement, m_font.form, m_program);
    } else {
        statement.fail(shown(keyword) + (m_isBodyBegun
                                             ? QStringLiteral(" stands in no glyph")
                                             : QStringLiteral(" is no statement of a font")));
    }
}

void FontCompiler::checkOrder(const Statement &statement, const Known &known)
{
    if (known.isHeader && m_isBodyBegun)
        statement.fail(shown(known.keyword) + QStringLiteral(" stands before the first glyph"));
    if (known.isOnce && !m_told.insert(known.keyword).second)
        statement.fail(shown(known.keyword) + QStringLiteral(" is told twice"));
    if (!known.isHeader && !m_isBodyBegun) {
        m_isBodyBegun = true;
        m_records = m_font.information && m_font.form != FontForm::Unifont ? 1 : 0;
    }
}

void FontCompiler::finishGlyph()
{
    if (!m_isInGlyph)
        return;
    m_isInGlyph = false;
    GlyphDefinition &glyph = m_font.glyphs.back();
    glyph.program = m_program.bytes();
    if (glyph.bare && glyph.program.contains('\0'))
        throw SourceError{m_glyphLine, QStringLiteral("a bare glyph holds no byte 0")};
    if (glyph.bytes().size() > kLongestDefinition)
        throw SourceError{m_glyphLine,
                          QStringLiteral("the glyph takes %1 bytes, at most %2 with its name")
                              .arg(glyph.bytes().size())
                              .arg(kLongestDefinition)};
}

void FontCompiler::finishFont()
{
    finishGlyph();
    if (!m_pendingGap.isEmpty())
        throw SourceError{m_gapLine, QStringLiteral("no glyph stands behind this gap")};
    if (m_font.form == FontForm::Unifont && !m_font.information)
        throw SourceError{m_lastLine, QStringLiteral("a unifont needs a name and above")};
    for (const auto &[slot, line] : m_lineOfSlot) {
        if (slot >= m_records)
            throw SourceError{line, QStringLiteral("slot %1 is outside the index of %2 records")
                                        .arg(slot)
                                        .arg(m_records)};
    }
    QString problem;
    if (m_font.form == FontForm::Bigfont && !resolveSlots(m_font, &problem))
        throw SourceError{m_lastLine, problem};
}

FontInformation &FontCompiler::information()
{
    if (!m_font.information)
        m_font.information = FontInformation();
    return *m_font.information;
}

void FontCompiler::demandForm(const Statement &statement, FontForm form, const char *what) const
{
    if (m_font.form != form)
        statement.fail(only(keywordOf(form).constData(), what));
}

void FontCompiler::countRecord(const Statement &statement)
{
    const bool isInformationCounted = m_font.countsInformation;
    if (++m_records + (isInformationCounted ? 1 : 0) > kMostRecords)
        statement.fail(QStringLiteral("more glyphs than a font can count: %1").arg(kMostRecords));
}

void FontCompiler::prefix(Statement &statement)
{
    m_font.prefix = statement.text("the prefix");
    if (m_font.prefix.size() != 11)
        statement.fail(QStringLiteral("the prefix has %1 bytes, not 11").arg(m_font.prefix.size()));
}

void FontCompiler::version(Statement &statement)
{
    m_font.version = statement.text("the version");
    if (m_font.version.size() > versionRoom(m_font.form))
        statement.fail(QStringLiteral("the version has %1 bytes, at most %2 in this form")
                           .arg(m_font.version.size())
                           .arg(versionRoom(m_font.form)));
    while (m_font.version.endsWith('\x1A')) // as the filling
        m_font.version.chop(1);
}

void FontCompiler::name(Statement &statement)
{
    information().name = statement.text("the name");
    if (information().name.contains('\0'))
        statement.fail(QStringLiteral("a name holds no byte 0"));
    if (information().name.size() > longestName(m_font.form))
        statement.fail(QStringLiteral("the name is too long"));
}

void FontCompiler::encoding(Statement &statement)
{
    demandForm(statement, FontForm::Unifont, "an encoding");
    information().encoding = byte(statement);
}

void FontCompiler::embedding(Statement &statement)
{
    demandForm(statement, FontForm::Unifont, "an embedding");
    information().embedding = byte(statement);
}

void FontCompiler::unused(Statement &statement)
{
    demandForm(statement, FontForm::Unifont, "unused bytes");
    m_font.unused = statement.hexBytes();
    if (m_font.unused.size() != 4)
        statement.fail(
            QStringLiteral("there are 4 unused bytes, not %1").arg(m_font.unused.size()));
}

void FontCompiler::countsInformation(Statement &statement)
{
    demandForm(statement, FontForm::Unifont, "a count with the information");
    m_font.countsInformation = true;
}

void FontCompiler::range(Statement &statement)
{
    demandForm(statement, FontForm::Bigfont, "ranges of lead bytes");
    if (m_font.ranges.size() >= static_cast<size_t>(kMostRecords))
        statement.fail(QStringLiteral("more ranges than a font can count: %1").arg(kMostRecords));
    LeadByteRange range;
    range.first = static_cast<quint16>(statement.number(0, 0xFFFF));
    statement.expect("to");
    range.last = static_cast<quint16>(statement.number(0, 0xFFFF));
    m_font.ranges.push_back(range);
}

void FontCompiler::glyph(Statement &statement)
{
    countRecord(statement);
    GlyphDefinition glyph;
    glyph.code = static_cast<quint16>(codeOperand(statement, m_font.form));
    const bool isNamed = statement.acceptText(&glyph.name);
    if (glyph.name.contains('\0'))
        statement.fail(QStringLiteral("a name holds no byte 0"));
    glyph.bare = statement.accept("bare");
    if (glyph.bare && isNamed)
        statement.fail(QStringLiteral("a bare glyph has no name"));
    if (statement.accept("slot")) {
        demandForm(statement, FontForm::Bigfont, "slots");
        glyph.slot = slotOperand(statement);
    }
    glyph.gapBefore = std::exchange(m_pendingGap, {});
    m_font.glyphs.push_back(glyph);
    m_program = GlyphProgram(m_font.form);
    m_glyphLine = statement.line;
    m_isInGlyph = true;
}

void FontCompiler::gap(Statement &statement)
{
    demandForm(statement, FontForm::Bigfont, "gaps");
    m_pendingGap += statement.hexBytes();
    m_gapLine = statement.line;
}

int FontCompiler::slotOperand(Statement &statement)
{
    const int slot = statement.number(0, kMostRecords - 1);
    takeSlot(statement, slot);
    return slot;
}

void FontCompiler::takeSlot(const Statement &statement, int slot)
{
    if (slot == 0 && m_font.information)
        statement.fail(QStringLiteral("slot 0 is that of the font information"));
    const auto [earlier, isNew] = m_lineOfSlot.emplace(slot, statement.line);
    if (!isNew)
        statement.fail(
            QStringLiteral("slot %1 is taken in line %2").arg(slot).arg(earlier->second));
}

void FontCompiler::entry(Statement &statement)
{
    demandForm(statement, FontForm::Bigfont, "index entries of their own");
    countRecord(statement);
    IndexEntry entry;
    entry.slot = slotOperand(statement);
    statement.expect("code");
    entry.code = static_cast<quint16>(codeOperand(statement, m_font.form));
    statement.expect("length");
    entry.length = static_cast<quint16>(statement.number(0, 0xFFFF));
    statement.expect("offset");
    entry.offset = statement.unsignedNumber();
    m_font.entries.push_back(entry);
}

void FontCompiler::empty(Statement &statement)
{
    demandForm(statement, FontForm::Bigfont, "empty index entries");
    const int first = statement.number(0, kMostRecords - 1);
    const int last = statement.accept("to") ? statement.number(first, kMostRecords - 1) : first;
    for (int slot = first; slot <= last; ++slot) {
        countRecord(statement);
        takeSlot(statement, slot);
        m_font.entries.push_back({slot, 0, 0, 0});
    }
}

void FontCompiler::trailing(Statement &statement) { m_font.trailing += statement.hexBytes(); }

} // namespace

std::optional<FontFile> compileFont(const QByteArray &source, QString *error)
{
    try {
        return FontCompiler().run(source);
    } catch (const SourceError &problem) {
        if (error)
            *error = QStringLiteral("line %1: %2").arg(problem.line).arg(problem.what);
    }
    return std::nullopt;
}

} // namespace fontkit
