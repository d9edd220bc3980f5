// Glyph programs of any bytes in a sound file: drawing and measuring take the pen the same way.
//
// The first byte chooses the form; then come the glyphs "A", "B", … each a length and its codes.

#include "MemoryFile.h"

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QByteArray>
#include <QtCore/QVector>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/** Stops the fuzzer at a point that is not finite. */
class FiniteCallback : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override {}
    void glVertex2d(double x, double y) override
    {
        if (!std::isfinite(x) || !std::isfinite(y))
            std::abort();
    }
    void glEnd() override {}
    void next() override {}
};

void append16(QByteArray &to, int number)
{
    to += static_cast<char>(number & 0xFF);
    to += static_cast<char>(number >> 8 & 0xFF);
}

QByteArray shapesFile(const QVector<QByteArray> &glyphs)
{
    QByteArray file = QByteArrayLiteral("fuzz font  shapes").leftJustified(28, ' ');
    append16(file, glyphs.size());
    for (int i = 0; i < glyphs.size(); ++i) {
        append16(file, 'A' + i);
        append16(file, glyphs[i].size() + 1);
    }
    for (const QByteArray &glyph : glyphs)
        file += '\0' + glyph;
    return file;
}

QByteArray unifontFile(const QVector<QByteArray> &glyphs)
{
    QByteArray file = QByteArrayLiteral("fuzz font  unifont").leftJustified(25, ' ');
    append16(file, glyphs.size());
    file = file.leftJustified(31, ' ') + QByteArray("\0\4\1\0\0\0\0", 7);
    for (int i = 0; i < glyphs.size(); ++i) {
        append16(file, 'A' + i);
        append16(file, glyphs[i].size() + 1);
        file += '\0' + glyphs[i];
    }
    return file;
}

constexpr std::size_t kMostBytes = 256;
constexpr char kSubshape = 7;

/**
 * Whether a glyph calls for more than one subshape: glyphs that call each other so draw as much as
 * the parser's bound on work allows, two million pieces. A test looks at that.
 */
bool fansOut(const QVector<QByteArray> &glyphs)
{
    return std::any_of(glyphs.begin(), glyphs.end(),
                       [](const QByteArray &glyph) { return glyph.count(kSubshape) > 1; });
}

QVector<QByteArray> split(const char *data, int size)
{
    QVector<QByteArray> glyphs;
    for (int at = 0; at < size && glyphs.size() < 26;) {
        const int length = static_cast<unsigned char>(data[at++]);
        glyphs.append(QByteArray(data + at, qMin(length, size - at)));
        at += length;
    }
    return glyphs;
}

bool sameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2 || size > kMostBytes)
        return 0;
    static MemoryFile file;
    const QVector<QByteArray> glyphs =
        split(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    if (fansOut(glyphs))
        return 0;
    const bool isUnifont = (data[0] & 1) != 0;
    const QByteArray font = isUnifont ? unifontFile(glyphs) : shapesFile(glyphs);
    file.write(font.constData(), static_cast<std::size_t>(font.size()));

    ZTShxParser drawing(file.path().constData());
    if (drawing.GetType() == SHX_TYPE::SHX_NONE)
        std::abort();
    drawing.setTextHeight(4.0);
    ZTShxParser measuring(drawing);
    FiniteCallback callback;
    const double drawn = isUnifont ? drawing.drawText(&callback, L"ABA", 0.0, 0.0)
                                   : drawing.drawText(&callback, "ABA", 0.0, 0.0);
    const double measured =
        isUnifont ? measuring.getTextExtent(L"ABA") : measuring.getTextExtent("ABA");
    if (!sameNumber(drawn, measured))
        std::abort();
    return 0;
}
