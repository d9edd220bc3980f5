// Contents and settings of codes: nothing crashes, what is refused says why and leaves the symbol
// alone, what is encoded can be marked in any form, and a reader never reads something else.

#include <codekit/CodeMarks.h>
#include <codekit/CodeReadback.h>

#include <QtGui/QPainter>

#include <cstdint>
#include <cstdlib>

using namespace codekit;

namespace {

/** Settings from the first bytes, the content from the rest. */
CodeSpec specOf(const std::uint8_t *data, std::size_t size)
{
    CodeSpec spec;
    spec.kind = codeKinds()[data[0] % codeKinds().size()].kind;
    spec.level = data[1] % 11 - 1;
    spec.version = data[2] % 3 == 0 ? data[2] % 43 - 1 : 0;
    spec.mask = data[3] % 10 - 1;
    spec.columns = data[4] % 4 == 0 ? data[4] % 35 - 1 : 0;
    spec.isRectangular = (data[5] & 1) != 0;
    spec.hasCheckDigit = (data[5] & 2) != 0;
    spec.hasEscapes = (data[5] & 4) != 0;
    spec.charset = CodeCharset(data[5] / 8 % 3);
    spec.content = QString::fromUtf8(reinterpret_cast<const char *>(data + 6), int(size - 6));
    return spec;
}

/** In one of the styles: all of them would take too long for each input. */
void mark(const CodeSymbol &symbol, int style)
{
    CodeForm form;
    form.style = CodeStyle(style);
    form.isInverse = form.style == CodeStyle::Bars;
    CodeMarks marks;
    QString reason;
    if (!markCode(symbol, form, &marks, &reason))
        std::abort();
}

/** Modules as lines across their middle, for a reader. */
MarkedLines linesOf(const CodeSymbol &symbol)
{
    MarkedLines marks;
    marks.quietMm = 11.0;
    double top = 0.0;
    for (int row = 0; row < symbol.rows; ++row) {
        const double height = infoOf(symbol.kind).isLinear ? 15.0 : symbol.rowModules[row];
        for (int column = 0; column < symbol.columns; ++column) {
            for (double y = top + 0.25; symbol.isDark(row, column) && y < top + height; y += 0.5)
                marks.linesMm.append({QPointF(column + 0.25, y), QPointF(column + 0.75, y)});
        }
        top += height;
    }
    marks.beamMm = 0.5;
    return marks;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 6 || size > 600)
        return 0;
    const CodeSpec spec = specOf(data, size);
    CodeSymbol symbol;
    QString reason;
    if (!encodeCode(spec, &symbol, &reason)) {
        if (reason.isEmpty() || symbol.columns != 0)
            std::abort();
        return 0;
    }
    if (symbol.columns <= 0 || symbol.rows <= 0 || symbol.dark.count(true) == 0)
        std::abort();
    mark(symbol, data[4] % 6);
    if (symbol.columns * symbol.rows < 1000 && data[3] % 16 == 0) {
        const ReadCode read = readMarks(linesOf(symbol), spec.kind, 1.0);
        if (read.isRead && !isSameContent(spec.kind, read.text, symbol.reads))
            std::abort();
    }
    return 0;
}
