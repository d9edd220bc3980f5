#include <studio/print/DrawingPrint.h>

#include <studio/choices/Units.h>
#include <studio/shapes/PenColors.h>

#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

#include <algorithm>

namespace studio {

namespace {

constexpr double kMarginMm = 10.0;
constexpr double kCaptionMm = 8.0;
constexpr double kCaptionHeightMm = 3.5;
constexpr double kLeastPageMm = 60.0; ///< so that the measures have room
constexpr double kLineMm = 0.1;
constexpr double kMmPerInch = 25.4;
constexpr int kDpi = 1200;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::DrawingPrint)
};

QString measuresText(const QSizeF &sizeMm, double scale)
{
    const QLocale locale;
    const int decimals = units::unit() == LengthUnit::Inch ? 5 : 3;
    QString measures =
        Texts::tr("%1 x %2 %3")
            .arg(locale.toString(sizeMm.width() / units::unitMm(), 'f', decimals),
                 locale.toString(sizeMm.height() / units::unitMm(), 'f', decimals), units::name());
    if (scale == 1.0)
        return measures;
    return Texts::tr("%1, shown at %2 %").arg(measures, locale.toString(scale * 100.0, 'f', 1));
}

} // namespace

struct DrawingPrint::Marks
{
    hostkit::DrawingMarks drawing;
    QRectF boxMm;
};

DrawingPrint::DrawingPrint(const ZTGraphicsDocument &document) : m_marks(std::make_unique<Marks>())
{
    m_marks->drawing = hostkit::drawingMarks(document, EShapeSortType::ShapeSortNone);
    const hostkit::MarkUnits &units = m_marks->drawing.units;
    bool isFirst = true;
    QPointF least;
    QPointF most;
    const auto take = [&](const QPointF &mark) {
        const QPointF mm(units.toMm(mark.x()), units.toMm(mark.y()));
        least = isFirst ? mm : QPointF(std::min(least.x(), mm.x()), std::min(least.y(), mm.y()));
        most = isFirst ? mm : QPointF(std::max(most.x(), mm.x()), std::max(most.y(), mm.y()));
        isFirst = false;
    };
    for (const ZTMarkObject &object : m_marks->drawing.graph.objects) {
        for (const QPolygonF &line : object.lines)
            std::for_each(line.begin(), line.end(), take);
        for (const QLineF &line : object.fillLines) {
            take(line.p1());
            take(line.p2());
        }
    }
    m_marks->boxMm = QRectF(least, most);
}

DrawingPrint::~DrawingPrint() = default;

bool DrawingPrint::isEmpty() const { return m_marks->drawing.graph.objects.isEmpty(); }

QRectF DrawingPrint::boundsMm() const { return m_marks->boxMm; }

QSizeF DrawingPrint::pageMm() const
{
    return {std::max(kLeastPageMm, m_marks->boxMm.width() + 2 * kMarginMm),
            std::max(kLeastPageMm, m_marks->boxMm.height() + 2 * kMarginMm + kCaptionMm)};
}

bool DrawingPrint::paint(QPagedPaintDevice &device) const
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(device.logicalDpiX() / kMmPerInch, device.logicalDpiY() / kMmPerInch);
    const QSizeF pageMm(device.width() * kMmPerInch / device.logicalDpiX(),
                        device.height() * kMmPerInch / device.logicalDpiY());
    const QRectF &box = m_marks->boxMm;
    const QSizeF roomMm(pageMm.width(), pageMm.height() - kCaptionMm);
    double scale = 1.0;
    // A hair of rounding in the page's size must not make a true size a smaller one.
    if (box.width() > roomMm.width() + 0.05)
        scale = std::min(scale, roomMm.width() / box.width());
    if (box.height() > roomMm.height() + 0.05)
        scale = std::min(scale, roomMm.height() / box.height());

    painter.save();
    painter.translate(roomMm.width() / 2, roomMm.height() / 2);
    painter.scale(scale, scale);
    painter.translate(-box.center());
    const double mmPerMark = m_marks->drawing.units.toMm(1.0);
    painter.scale(mmPerMark, mmPerMark);
    for (const ZTMarkObject &object : m_marks->drawing.graph.objects) {
        painter.setPen(QPen(penColor(object.penId), kLineMm / mmPerMark / scale));
        for (const QPolygonF &line : object.lines)
            painter.drawPolyline(line);
        painter.drawLines(object.fillLines);
    }
    painter.restore();
    QFont font = painter.font();
    font.setPixelSize(100);
    painter.setFont(font);
    painter.translate(0, pageMm.height() - kCaptionMm / 3);
    painter.scale(kCaptionHeightMm / 100, kCaptionHeightMm / 100);
    painter.setPen(Qt::black);
    painter.drawText(0, 0, measuresText(box.size(), scale));
    return painter.end();
}

bool DrawingPrint::writePdf(QIODevice &device) const
{
    QPdfWriter pdf(&device);
    pdf.setResolution(kDpi);
    pdf.setPageSize(QPageSize(pageMm(), QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    pdf.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                       QPageLayout::Millimeter);
    return paint(pdf);
}

} // namespace studio
