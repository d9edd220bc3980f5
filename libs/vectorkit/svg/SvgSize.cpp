#include <vectorkit/svg/SvgScan_p.h>
#include <vectorkit/svg/SvgWalker_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

constexpr double kMmPerInch = 25.4;

QString shortNumber(double value) { return QLocale::c().toString(value, 'g', 6); }

/** First and second number of a version such as "0.48.3.1 r9886"; false when there is none. */
bool parseVersion(const QString &text, int *first, int *second)
{
    static const QRegularExpression kVersion(QStringLiteral("(\\d{1,4})\\.(\\d{1,4})"));
    const QRegularExpressionMatch match = kVersion.match(text);
    if (!match.hasMatch())
        return false;
    *first = match.capturedRef(1).toInt();
    *second = match.capturedRef(2).toInt();
    return true;
}

/** The box in a `viewBox`; false when it has none of a size. */
bool parseViewBox(const QString &text, QRectF *box)
{
    const QVector<double> n = parseSvgNumbers(text);
    if (n.size() != 4 || !(n[2] > 0.0) || !(n[3] > 0.0))
        return false;
    *box = QRectF(n[0], n[1], n[2], n[3]);
    return true;
}

/** What the `style` of the root says of a length, which goes before the attribute of that name. */
QString styledLength(const QString &style, QLatin1String name)
{
    for (const QStringRef &part : style.splitRef(QLatin1Char(';'))) {
        const int colon = part.indexOf(QLatin1Char(':'));
        if (colon > 0 && part.left(colon).trimmed().compare(name, Qt::CaseInsensitive) == 0)
            return part.mid(colon + 1).trimmed().toString();
    }
    return QString();
}

/** A length of the sheet that is given at all and not as a part of something unknown. */
bool sheetLength(const QString &text, SvgLength *length)
{
    return parseSvgLength(text, length) && length->unit != SvgUnit::Percent && length->value > 0.0;
}

} // namespace

/** The scale and shift that bring a `viewBox` into its port, as preserveAspectRatio says. */
QTransform SvgWalker::viewTransform(int node, const QRectF &port, QSizeF *viewport) const
{
    QTransform transform = QTransform::fromTranslate(port.x(), port.y());
    QRectF box;
    if (!parseViewBox(m_tree.attribute(node, SvgName::ViewBox), &box)) {
        *viewport = port.size();
        return transform;
    }
    *viewport = box.size();
    double scaleX = port.width() / box.width();
    double scaleY = port.height() / box.height();
    QString how = m_tree.attribute(node, SvgName::PreserveAspectRatio).simplified();
    if (how.startsWith(QLatin1String("defer ")))
        how.remove(0, 6);
    const QString align = how.section(QLatin1Char(' '), 0, 0);
    if (align != QLatin1String("none")) {
        const bool isSlice = how.section(QLatin1Char(' '), 1, 1) == QLatin1String("slice");
        scaleX = scaleY = isSlice ? std::max(scaleX, scaleY) : std::min(scaleX, scaleY);
        const auto part = [&](QLatin1String low, QLatin1String high) {
            return align.contains(low) ? 0.0 : align.contains(high) ? 1.0 : 0.5;
        };
        const double partX = part(QLatin1String("xMin"), QLatin1String("xMax"));
        const double partY = part(QLatin1String("YMin"), QLatin1String("YMax"));
        transform.translate((port.width() - box.width() * scaleX) * partX,
                            (port.height() - box.height() * scaleY) * partY);
    }
    transform.scale(scaleX, scaleY);
    transform.translate(-box.x(), -box.y());
    return transform;
}

/** How many pixels the program that wrote the file takes for an inch. */
double SvgWalker::pixelsPerInchOfProducer(QString *reason)
{
    const QString editor = m_tree.attribute(0, SvgName::EditorVersion);
    int first = 0;
    int second = 0;
    if (!editor.isEmpty()) {
        m_drawing->producer = QStringLiteral("Inkscape ") + editor.section(QLatin1Char(' '), 0, 0);
        if (parseVersion(editor, &first, &second) && first == 0 && second < 92) {
            *reason = QCoreApplication::translate(
                          "vectorkit", "Its sizes are in pixels, of which %1 took 90 for an inch.")
                          .arg(m_drawing->producer);
            return 90.0;
        }
    } else if (!m_tree.attribute(0, SvgName::OldEditorVersion).isEmpty()) {
        m_drawing->producer =
            QStringLiteral("Sodipodi ") +
            m_tree.attribute(0, SvgName::OldEditorVersion).section(QLatin1Char(' '), 0, 0);
        *reason = QCoreApplication::translate(
                      "vectorkit", "Its sizes are in pixels, of which %1 took 90 for an inch.")
                      .arg(m_drawing->producer);
        return 90.0;
    } else {
        m_drawing->producer = m_tree.producer;
        if (m_tree.producer.contains(QLatin1String("Illustrator"))) {
            *reason = QCoreApplication::translate(
                          "vectorkit", "Its sizes are in pixels, of which %1 takes 72 for an inch.")
                          .arg(m_drawing->producer);
            return 72.0;
        }
    }
    *reason = QCoreApplication::translate("vectorkit",
                                          "Its sizes are in pixels, of which 96 make an inch.");
    return 96.0;
}

/** Finds how large the sheet is and what a unit of the drawing measures on it. */
void SvgWalker::findSize()
{
    QString pixelReason;
    m_pixelsPerInch = pixelsPerInchOfProducer(&pixelReason);
    const double mmPerPixel = kMmPerInch / m_pixelsPerInch;
    SvgLength width;
    SvgLength height;
    const QString style = m_tree.attribute(0, SvgName::StyleText);
    const bool hasWidth = sheetLength(styledLength(style, QLatin1String("width")), &width) ||
                          sheetLength(m_tree.attribute(0, SvgName::Width), &width);
    const bool hasHeight = sheetLength(styledLength(style, QLatin1String("height")), &height) ||
                           sheetLength(m_tree.attribute(0, SvgName::Height), &height);
    QRectF box;
    const bool hasBox = parseViewBox(m_tree.attribute(0, SvgName::ViewBox), &box);
    const auto mm = [&](const SvgLength &length) {
        return length.toUser(m_pixelsPerInch, 0.0, m_root.style.fontSize) * mmPerPixel;
    };
    QSizeF sheet; // millimetres
    if (hasWidth && hasHeight) {
        sheet = QSizeF(mm(width), mm(height));
    } else if (hasBox && hasWidth) {
        sheet = QSizeF(mm(width), mm(width) * box.height() / box.width());
    } else if (hasBox && hasHeight) {
        sheet = QSizeF(mm(height) * box.width() / box.height(), mm(height));
    } else if (hasBox) {
        sheet = box.size() * mmPerPixel;
    }
    const bool isAbsolute = (hasWidth && width.isAbsolute()) || (hasHeight && height.isAbsolute());
    if (isAbsolute) {
        m_drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The file gives its size: %1 × %2 mm.")
                .arg(shortNumber(sheet.width()), shortNumber(sheet.height()));
        m_drawing->sizeSource = SizeSource::Declared;
    } else if (hasWidth || hasHeight) {
        m_drawing->sizeReason = pixelReason;
        m_drawing->sizeSource = SizeSource::Declared;
    } else {
        m_drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The file gives no size. %1").arg(pixelReason);
        m_drawing->sizeSource = SizeSource::Guessed;
    }
    if (hasWidth && hasHeight && !sheet.isEmpty() && !hasBox) {
        m_root.viewport = sheet / mmPerPixel;
        m_root.toMm = QTransform::fromScale(mmPerPixel, mmPerPixel);
    } else if (!sheet.isEmpty() && hasBox) {
        m_root.toMm = viewTransform(0, QRectF(QPointF(), sheet), &m_root.viewport);
    } else {
        m_root.viewport = QSizeF(300.0, 150.0); // what viewers take without any word of a size
        m_root.toMm = QTransform::fromScale(mmPerPixel, mmPerPixel);
    }
    m_drawing->unitMm = std::sqrt(std::abs(m_root.toMm.determinant()));
    m_drawing->declaredSizeMm = hasWidth || hasHeight || hasBox ? sheet : QSizeF();
    if (m_options.unitMm > 0.0) {
        const double factor = m_options.unitMm / m_drawing->unitMm;
        m_root.toMm *= QTransform::fromScale(factor, factor);
        m_drawing->declaredSizeMm *= factor;
        m_drawing->unitMm = m_options.unitMm;
        m_drawing->sizeSource = SizeSource::Chosen;
        m_drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The unit was chosen: %1 mm.")
                .arg(shortNumber(m_options.unitMm));
    }
}

} // namespace vectorkit
