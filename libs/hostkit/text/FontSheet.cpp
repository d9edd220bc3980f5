#include <hostkit/text/FontSheet.h>

#include <hostkit/files/FileWriter.h>
#include <hostkit/files/TextOutput_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QPainter>

namespace hostkit {

namespace {

constexpr double kGlyphHeight = 0.5; // of the ascender, in cells
constexpr QPointF kOrigin(0.2, 0.7); // of a glyph in its cell
constexpr double kCodeBase = 0.95;   // base line of the code in its cell
constexpr double kCodeSize = 0.14;
constexpr double kTitleCells = 1.0; // height of the title above the grid
constexpr int kCellPx = 64;
constexpr int kLeastColumns = 16;
constexpr int kMostRowsPerColumn = 3;
constexpr int kCellMm = 12;
constexpr double kStrokeWidth = 0.02;

/** Texts of this file for the catalogue. */
struct SheetTexts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::FontSheet)
};

/** Gathers strokes as polylines, brought into the cell. */
class StrokeCollector : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override { glEnd(); }
    void glVertex2d(double x, double y) override { m_open.append(kOrigin + QPointF(x, -y)); }
    void glEnd() override
    {
        if (m_open.size() > 1)
            m_strokes.append(m_open);
        m_open.clear();
    }
    void next() override {}

    QVector<QPolygonF> take()
    {
        glEnd();
        return std::exchange(m_strokes, {});
    }

private:
    QPolygonF m_open;
    QVector<QPolygonF> m_strokes;
};

QString codeText(int code) { return QString::number(code, 16).toUpper(); }

/** Where a glyph's cell begins. */
QPointF cellOf(int number, const QSize &grid)
{
    const int row = number / grid.width();
    return QPointF(number % grid.width(), kTitleCells + row);
}

void writeStrokes(TextOutput &out, const FontSheetGlyph &glyph, const QPointF &cell)
{
    const auto rounded = [](double value) {
        QByteArray text;
        appendRounded(text, value, 4);
        return text;
    };
    out << "<path d=\"";
    for (const QPolygonF &stroke : glyph.strokes) {
        for (int i = 0; i < stroke.size(); ++i) {
            const QPointF point = cell + stroke[i];
            out << (i == 0 ? "M" : "L") << rounded(point.x()).constData() << " "
                << rounded(point.y()).constData();
        }
    }
    out << "\"/>\n";
}

void writeText(TextOutput &out, const QPointF &at, const QString &text)
{
    out << "<text x=\"" << at.x() << "\" y=\"" << at.y() << "\">"
        << text.toHtmlEscaped().toUtf8().constData() << "</text>\n";
}

void writeSvg(const FontSheet &sheet, const QString &title, QIODevice &device)
{
    const QSize grid = sheet.grid();
    const double height = grid.height() + kTitleCells;
    TextOutput out(device);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << grid.width() * kCellMm
        << "mm\" height=\"" << height * kCellMm << "mm\" viewBox=\"0 0 " << grid.width() << " "
        << height << "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
        << "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
        << "<g stroke=\"#000000\" stroke-width=\"" << kStrokeWidth << "\">\n";
    for (int i = 0; i < sheet.glyphs().size(); ++i) {
        if (!sheet.glyphs()[i].strokes.isEmpty())
            writeStrokes(out, sheet.glyphs()[i], cellOf(i, grid));
    }
    out << "</g>\n<g fill=\"#606060\" font-family=\"sans-serif\" font-size=\"" << kCodeSize
        << "\">\n";
    for (int i = 0; i < sheet.glyphs().size(); ++i)
        writeText(out, cellOf(i, grid) + QPointF(kOrigin.x(), kCodeBase),
                  codeText(sheet.glyphs()[i].code));
    out << "</g>\n<g fill=\"#000000\" font-family=\"sans-serif\" font-size=\"0.4\">\n";
    writeText(out, QPointF(kOrigin.x(), kTitleCells / 2.0), title);
    out << "</g>\n</svg>\n";
}

QFont fontOf(double cells)
{
    QFont font;
    font.setPixelSize(static_cast<int>(cells * kCellPx));
    return font;
}

bool writePng(const FontSheet &sheet, const QString &title, QIODevice &device)
{
    const QSize grid = sheet.grid();
    QImage image(QSize(grid.width(), grid.height() + static_cast<int>(kTitleCells)) * kCellPx,
                 QImage::Format_Grayscale8);
    if (image.isNull())
        return false;
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(fontOf(0.4));
    painter.drawText(QPointF(kOrigin.x(), kTitleCells / 2.0) * kCellPx, title);
    painter.setFont(fontOf(kCodeSize));
    painter.setPen(QColor(0x60, 0x60, 0x60));
    for (int i = 0; i < sheet.glyphs().size(); ++i)
        painter.drawText((cellOf(i, grid) + QPointF(kOrigin.x(), kCodeBase)) * kCellPx,
                         codeText(sheet.glyphs()[i].code));
    painter.setPen(QPen(Qt::black, kStrokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (int i = 0; i < sheet.glyphs().size(); ++i) {
        const QPointF cell = cellOf(i, grid);
        painter.setTransform(QTransform::fromTranslate(cell.x(), cell.y()) *
                             QTransform::fromScale(kCellPx, kCellPx));
        for (const QPolygonF &stroke : sheet.glyphs()[i].strokes)
            painter.drawPolyline(stroke);
    }
    painter.end();
    return image.save(&device, "PNG");
}

bool isSvg(const QString &path)
{
    return path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
}

} // namespace

bool FontSheet::read(const QString &path, Failure *failure)
{
    m_drawn.clear();
    if (!readShxFontInfo(path, &m_info, failure))
        return false;
    ZTShxParser parser(QFile::encodeName(path).constData());
    parser.setTextHeight(kGlyphHeight);
    parser.resetNextGlyph();
    // The walk of a big font begins behind the font information.
    const int first = m_info.isBig() ? 1 : 0;
    for (int i = first; i < m_info.glyphs.size(); ++i) {
        StrokeCollector collector;
        parser.showNextGlyph(&collector, 0.0, 0.0);
        if (m_info.glyphs[i].code != 0)
            m_drawn.append({m_info.glyphs[i].code, collector.take()});
    }
    return !m_drawn.isEmpty() ||
           fail(failure, Failure::Kind::NotPossible, SheetTexts::tr("the font has no glyphs"));
}

QSize FontSheet::grid() const
{
    int columns = kLeastColumns;
    const auto rows = [&] { return (m_drawn.size() + columns - 1) / columns; };
    while (rows() > kMostRowsPerColumn * columns)
        columns *= 2;
    return QSize(columns, rows());
}

bool FontSheet::hasExtension(const QString &path)
{
    return isSvg(path) || path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
}

bool FontSheet::save(const QString &path, const QString &title, Failure *failure) const
{
    const auto write = [&](QIODevice &device) {
        if (!isSvg(path))
            return writePng(*this, title, device);
        writeSvg(*this, title, device);
        return true;
    };
    return saveWhole(path, write, failure);
}

} // namespace hostkit
