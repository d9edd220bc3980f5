#include "GlyphStatements_p.h"

#include "CodeText_p.h"
#include "GlyphCodes_p.h"

#include <algorithm>

namespace fontkit {

namespace {

constexpr int kBytesALine = 24;
constexpr int kItemsALine = 10;
constexpr int kOctantsUnused = 0x08; // bit of the octants byte that says nothing

QByteArray number(int value) { return QByteArray::number(value); }

/** Walks a program code by code. */
class Disassembly
{
public:
    Disassembly(const QByteArray &ofProgram, FontForm ofForm) : m_program(ofProgram), m_form(ofForm)
    {
    }

    std::vector<QByteArray> run()
    {
        while (m_at < m_program.size())
            oneCode();
        return std::move(m_statements);
    }

private:
    void oneCode();
    void vector(int code);
    void subshape();
    void scale(const char *keyword);
    void octantArc();
    void fractionalArc();
    void single(const char *keyword, int itemSize);
    void list(const char *keyword, int itemSize);
    void appendList(const char *keyword, int itemSize, int items);
    void add(const QByteArray &statement, int size);
    void addRaw(int size);

    int left() const { return m_program.size() - m_at; }
    int unsignedAt(int offset) const { return static_cast<quint8>(m_program[m_at + offset]); }
    int signedAt(int offset) const { return static_cast<qint8>(m_program[m_at + offset]); }
    bool isZeroPair(int offset) const
    {
        return unsignedAt(offset) == 0 && unsignedAt(offset + 1) == 0;
    }
    QByteArray itemAt(int offset, int size, char separator) const;
    QByteArray octantsAt(int offset) const;

    const QByteArray &m_program;
    FontForm m_form;
    int m_at = 0;
    std::vector<QByteArray> m_statements;
};

void Disassembly::add(const QByteArray &statement, int size)
{
    m_statements.push_back(statement);
    m_at += size;
}

void Disassembly::addRaw(int size)
{
    const int there = std::min(size, left());
    for (const QByteArray &line : hexLines("raw", m_program.mid(m_at, there)))
        m_statements.push_back(line);
    m_at += there;
}

void Disassembly::oneCode()
{
    const int code = unsignedAt(0);
    switch (code) {
    case CodeEnd:
        return add("end", 1);
    case CodePenDown:
        return add("down", 1);
    case CodePenUp:
        return add("up", 1);
    case CodeScaleDown:
        return scale("scale-down");
    case CodeScaleUp:
        return scale("scale-up");
    case CodePush:
        return add("push", 1);
    case CodePop:
        return add("pop", 1);
    case CodeSubshape:
        return subshape();
    case CodeLine:
        return single("line", 2);
    case CodeLines:
        return list("lines", 2);
    case CodeOctantArc:
        return octantArc();
    case CodeFractionalArc:
        return fractionalArc();
    case CodeBulge:
        return single("bulge", 3);
    case CodeBulges:
        return list("bulges", 3);
    case CodeVerticalOnly:
        return add("vertical", 1);
    case CodeNothing:
        return addRaw(1);
    default:
        return vector(code);
    }
}

void Disassembly::vector(int code)
{
    add(QByteArray("line ") + kDirectionNames[code & 0xF] + ' ' + number(code >> 4), 1);
}

void Disassembly::scale(const char *keyword)
{
    if (left() < 2 || unsignedAt(1) == 0)
        return addRaw(2);
    add(QByteArray(keyword) + ' ' + number(unsignedAt(1)), 2);
}

void Disassembly::subshape()
{
    const int size = m_form == FontForm::Unifont ? 3 : 2;
    if (left() < size)
        return addRaw(size);
    const int code = unsignedAt(1) | (size == 3 ? unsignedAt(2) << 8 : 0);
    add("subshape " + codeText(static_cast<quint16>(code)).toLatin1(), size);
}

QByteArray Disassembly::octantsAt(int offset) const
{
    const int octants = unsignedAt(offset);
    const int span = (octants & 7) == 0 ? 8 : octants & 7;
    const bool isClockwise = (octants & 0x80) != 0;
    return " from " + number(octants >> 4 & 7) + " over " + number(span) +
           (isClockwise ? " clockwise" : "");
}

void Disassembly::octantArc()
{
    if (left() < 3 || unsignedAt(2) & kOctantsUnused)
        return addRaw(3);
    add("arc " + number(unsignedAt(1)) + octantsAt(2), 3);
}

void Disassembly::fractionalArc()
{
    if (left() < 6 || unsignedAt(5) & kOctantsUnused)
        return addRaw(6);
    const int radius = unsignedAt(3) << 8 | unsignedAt(4);
    add("fractional-arc " + number(radius) + octantsAt(5) + " start " + number(unsignedAt(1)) +
            " end " + number(unsignedAt(2)),
        6);
}

QByteArray Disassembly::itemAt(int offset, int size, char separator) const
{
    QByteArray item = number(signedAt(offset));
    for (int i = 1; i < size; ++i)
        item += separator + number(signedAt(offset + i));
    return item;
}

void Disassembly::single(const char *keyword, int itemSize)
{
    if (left() < 3)
        return addRaw(left());
    if (itemSize == 3 && isZeroPair(1)) // has no bulge
        itemSize = 2;
    if (left() < 1 + itemSize)
        return addRaw(left());
    add(QByteArray(keyword) + ' ' + itemAt(1, itemSize, ' '), 1 + itemSize);
}

void Disassembly::list(const char *keyword, int itemSize)
{
    int items = 0;
    while (1 + items * itemSize + 2 <= left() && !isZeroPair(1 + items * itemSize))
        ++items;
    if (1 + items * itemSize + 2 > left())
        return addRaw(left()); // no end
    appendList(keyword, itemSize, items);
    m_at += 1 + items * itemSize + 2;
}

void Disassembly::appendList(const char *keyword, int itemSize, int items)
{
    QByteArray line = keyword;
    for (int i = 0; i < items; ++i) {
        if (i > 0 && i % kItemsALine == 0) {
            m_statements.push_back(line + " \\");
            line = " ";
        }
        line += ' ' + itemAt(1 + i * itemSize, itemSize, ',');
    }
    m_statements.push_back(line);
}

} // namespace

std::vector<QByteArray> statementsOf(const QByteArray &program, FontForm form)
{
    return Disassembly(program, form).run();
}

std::vector<QByteArray> hexLines(const QByteArray &keyword, const QByteArray &bytes)
{
    std::vector<QByteArray> lines;
    for (int i = 0; i < bytes.size(); i += kBytesALine)
        lines.push_back(keyword + ' ' + bytes.mid(i, kBytesALine).toHex(' ').toUpper());
    return lines;
}

} // namespace fontkit
