#include <vectorkit/svg/SvgWalker_p.h>

#include <vectorkit/svg/SvgPathData_p.h>
#include <vectorkit/svg/SvgScan_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

/** Limit: elements shown in one another, `use` counted in. */
constexpr int kMostDepth = 500;

/** Limit: clip paths that clip one another. */
constexpr int kMostClips = 20;

/** Limit: coordinates in millimetres. */
constexpr double kFarthest = 1e9;

bool isNear(const QPointF &point)
{
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest;
}

/** False also for what is no number. */
bool isInRange(const VectorPath &path)
{
    bool isGood = isNear(path.start());
    path.forEach([&](const VectorPath::Piece &piece) {
        isGood = isGood && isNear(piece.to);
        if (piece.kind != PieceKind::Line)
            isGood = isGood && isNear(piece.control1);
        if (piece.kind == PieceKind::Cubic)
            isGood = isGood && isNear(piece.control2);
    });
    return isGood;
}

QRectF boxOf(const QVector<VectorPath> &paths)
{
    VectorDrawing one;
    one.layers.append(VectorLayer());
    one.layers.last().shapes.append(VectorShape());
    one.layers.last().shapes.last().paths = paths;
    return one.boundsMm();
}

/** "Layer_x0020_1" as some programs write a name that has to be an id. */
QString nameFromId(const QString &id)
{
    static const QRegularExpression kCode(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
    QString name;
    int at = 0;
    auto codes = kCode.globalMatch(id);
    while (codes.hasNext()) {
        const QRegularExpressionMatch code = codes.next();
        name += id.midRef(at, code.capturedStart() - at);
        name += QChar(code.capturedRef(1).toUShort(nullptr, 16));
        at = code.capturedEnd();
    }
    return name + id.midRef(at);
}

bool saysNone(const QString &value)
{
    return value.isEmpty() || value.trimmed() == QLatin1String("none");
}

/** What stands in "path('...')", "" in "none"; null in anything else. */
QString pathDataOf(const QString &declared)
{
    static const QRegularExpression kPath(QStringLiteral("^path\\(\\s*(['\"])(.*)\\1\\s*\\)$"));
    const QString text = declared.trimmed();
    const QRegularExpressionMatch match = kPath.match(text);
    if (match.hasMatch())
        return match.captured(2);
    return text == QLatin1String("none") ? QString(QLatin1String("")) : QString();
}

} // namespace

SvgWalker::SvgWalker(const SvgTree &source, const ReadOptions &readOptions, VectorDrawing *target)
    : m_tree(source), m_options(readOptions), m_drawing(target)
{
}

bool SvgWalker::walk(ReadFailure *failure)
{
    for (int node = 0; node < m_tree.nodes.size(); ++node) {
        if (m_tree.nodes[node].element != SvgElement::Style)
            continue;
        const int misread = m_sheets.add(m_tree.charactersOf(node));
        if (misread > 0) {
            m_drawing->note(
                VectorNote::Kind::Left,
                QCoreApplication::translate("vectorkit", "style rules that are not known"),
                QCoreApplication::translate("vectorkit", "line %1").arg(m_tree.nodes[node].line),
                misread);
        }
    }
    findSize();
    SvgPlace place;
    if (enter(0, m_root, &place))
        visitChildren(0, place);
    m_drawing->layers.erase(std::remove_if(m_drawing->layers.begin(), m_drawing->layers.end(),
                                           [](const VectorLayer &l) {
                                               return l.shapes.isEmpty() && l.texts.isEmpty();
                                           }),
                            m_drawing->layers.end());
    if (m_isCancelled)
        *failure = {ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."), QString()};
    else if (m_isTooLarge)
        *failure = {
            ReadFailure::Kind::TooLarge,
            QCoreApplication::translate("vectorkit", "The drawing is larger than can be read."),
            QCoreApplication::translate("vectorkit",
                                        "Take it apart with the program that wrote it.")};
    return !m_isCancelled && !m_isTooLarge;
}

void SvgWalker::note(VectorNote::Kind kind, const QString &what, int node)
{
    m_drawing->note(
        kind, what,
        QCoreApplication::translate("vectorkit", "line %1").arg(m_tree.nodes[node].line));
}

VectorLayer &SvgWalker::layer()
{
    if (m_layerIndex >= 0)
        return m_drawing->layers[m_layerIndex];
    if (m_freeLayerIndex < 0) {
        m_freeLayerIndex = m_drawing->layers.size();
        m_drawing->layers.append(VectorLayer());
    }
    return m_drawing->layers[m_freeLayerIndex];
}

/** An attribute of a shape, or what stands in its stead in a style sheet, there with its unit. */
QString SvgWalker::geometryText(int node, SvgName name, const SvgPlace &place) const
{
    const QString declared = place.geometry.value(name).trimmed();
    SvgLength read;
    const bool isLength =
        parseSvgLength(declared, &read) && (read.unit != SvgUnit::None || read.value == 0.0);
    return isLength || declared == QLatin1String("auto") ? declared : m_tree.attribute(node, name);
}

double SvgWalker::length(int node, SvgName name, double whole, const SvgPlace &place, double none)
{
    const QString text = geometryText(node, name, place);
    if (text.isEmpty() || text == QLatin1String("auto"))
        return none;
    SvgLength read;
    if (!parseSvgLength(text, &read)) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "lengths that are no numbers"), node);
        return none;
    }
    return read.toUser(m_pixelsPerInch, whole, place.style.fontSize);
}

double SvgWalker::lengthX(int node, SvgName name, const SvgPlace &place, double none)
{
    return length(node, name, place.viewport.width(), place, none);
}

double SvgWalker::lengthY(int node, SvgName name, const SvgPlace &place, double none)
{
    return length(node, name, place.viewport.height(), place, none);
}

bool SvgWalker::isHidden(int node, const SvgProperties &properties)
{
    const QString display = properties.value(SvgName::Display).trimmed();
    double opacity = 1.0;
    SvgLength read;
    if (parseSvgLength(properties.value(SvgName::Opacity), &read))
        opacity = read.value;
    if (display != QLatin1String("none") && opacity > 0.0)
        return false;
    const QString label = m_tree.attribute(node, SvgName::Label);
    if (m_tree.attribute(node, SvgName::GroupMode) == QLatin1String("layer"))
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "hidden layer \"%1\"").arg(label), node);
    else
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "hidden elements"),
             node);
    return true;
}

QTransform SvgWalker::transformOf(const SvgProperties &properties, int node)
{
    const QString text = properties.value(SvgName::Transform);
    QTransform transform;
    if (text.isEmpty())
        return transform;
    if (!parseSvgTransform(text, &transform)) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "transforms that cannot be read"), node);
        return transform;
    }
    const QVector<double> origin =
        parseSvgNumbers(properties.value(SvgName::TransformOrigin).remove(QLatin1String("px")));
    if (origin.size() == 2) {
        transform = QTransform::fromTranslate(-origin[0], -origin[1]) * transform *
                    QTransform::fromTranslate(origin[0], origin[1]);
    }
    return transform;
}

/** Texts, pictures and sheets have places of their own: only outlines follow style sheets. */
SvgProperties SvgWalker::geometryOf(int node, const SvgProperties &properties) const
{
    const SvgElement element = m_tree.nodes[node].element;
    const bool isShape = element >= SvgElement::Path && element <= SvgElement::Polygon;
    return isShape ? properties.geometry() : SvgProperties();
}

/** The place inside an element; false when nothing in it is seen. */
bool SvgWalker::enter(int node, const SvgPlace &outer, SvgPlace *place)
{
    const SvgProperties properties = m_sheets.propertiesOf(m_tree, node);
    if (isHidden(node, properties))
        return false;
    *place = outer;
    ++place->depth;
    const double size =
        std::hypot(outer.viewport.width(), outer.viewport.height()) / std::sqrt(2.0);
    place->style = svgStyle(outer.style, properties, m_pixelsPerInch, size);
    place->geometry = geometryOf(node, properties);
    const QString space = m_tree.attribute(node, SvgName::Space);
    if (!space.isEmpty())
        place->style.keepsSpaces = space == QLatin1String("preserve");
    if (node != 0)
        place->toMm = transformOf(properties, node) * outer.toMm;
    const double size2 = place->toMm.determinant();
    if (!std::isfinite(size2) || size2 == 0.0)
        return false;
    if (properties.value(SvgName::VectorEffect).contains(QLatin1String("non-scaling-stroke")))
        place->style.strokeWidth *= std::sqrt(std::abs(m_root.toMm.determinant() / size2));
    if (!saysNone(properties.value(SvgName::MaskUse)))
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "masks, shown without them"), node);
    if (!saysNone(properties.value(SvgName::FilterUse)))
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "filters, shown without them"), node);
    const QString clip = properties.value(SvgName::ClipPathUse);
    if (!saysNone(clip))
        applyClip(clip, node, place);
    return true;
}

void SvgWalker::visitChildren(int node, const SvgPlace &place)
{
    for (int child = m_tree.nodes[node].firstChild; child >= 0;
         child = m_tree.nodes[child].nextSibling) {
        visit(child, place);
        if (m_isCancelled || m_isTooLarge)
            return;
    }
}

void SvgWalker::visit(int node, const SvgPlace &outer)
{
    ++m_visited;
    m_isTooLarge = m_isTooLarge || m_visited > m_options.mostPieces;
    if (m_options.progress && m_visited % 1024 == 0) {
        const double done = double(m_visited) / double(m_tree.nodes.size());
        m_isCancelled = m_isCancelled || !m_options.progress(0.5 + std::min(0.5, done * 0.5));
    }
    if (outer.depth > kMostDepth) {
        note(
            VectorNote::Kind::Left,
            QCoreApplication::translate("vectorkit", "elements that stand too deep in one another"),
            node);
        return;
    }
    SvgPlace place;
    switch (m_tree.nodes[node].element) {
    case SvgElement::G:
    case SvgElement::A:
        if (enter(node, outer, &place)) {
            const int layerBefore = m_layerIndex;
            enterLayer(node);
            visitChildren(node, place);
            m_layerIndex = layerBefore;
        }
        break;
    case SvgElement::Svg:
        if (enter(node, outer, &place))
            visitNested(node, place, QSizeF());
        break;
    case SvgElement::Use:
        if (enter(node, outer, &place))
            visitUse(node, place);
        break;
    case SvgElement::Switch:
        if (enter(node, outer, &place))
            visitSwitch(node, place);
        break;
    case SvgElement::Path:
    case SvgElement::Rect:
    case SvgElement::Circle:
    case SvgElement::Ellipse:
    case SvgElement::Line:
    case SvgElement::Polyline:
    case SvgElement::Polygon:
        if (enter(node, outer, &place))
            addShape(node, place);
        break;
    case SvgElement::Text:
        if (enter(node, outer, &place))
            addText(node, place);
        break;
    case SvgElement::FlowRoot:
        if (enter(node, outer, &place))
            addFlowedText(node, place);
        break;
    default:
        visitOther(node);
    }
}

/** What draws nothing, and what is left out. */
void SvgWalker::visitOther(int node)
{
    switch (m_tree.nodes[node].element) {
    case SvgElement::Image:
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "pictures (bitmaps)"),
             node);
        break;
    case SvgElement::Script:
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "scripts"), node);
        break;
    case SvgElement::Animate:
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "animations"), node);
        break;
    case SvgElement::ForeignObject:
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "content of other formats"), node);
        break;
    case SvgElement::Other:
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "element \"%1\"")
                 .arg(m_tree.nodes[node].text.left(40)),
             node);
        break;
    default:
        break;
    }
}

void SvgWalker::enterLayer(int node)
{
    const bool isSheetGroup =
        m_tree.nodes[node].parent == 0 && (m_tree.producer.contains(QLatin1String("Illustrator")) ||
                                           m_tree.producer.contains(QLatin1String("CorelDRAW")));
    QString name;
    if (m_tree.attribute(node, SvgName::GroupMode) == QLatin1String("layer")) {
        name = m_tree.attribute(node, SvgName::Label);
        if (name.isEmpty())
            name = m_tree.attribute(node, SvgName::Id);
    } else if (m_tree.attribute(node, SvgName::IsLayer) == QLatin1String("yes") || isSheetGroup) {
        name = nameFromId(m_tree.attribute(node, SvgName::Id));
    }
    if (name.isEmpty())
        return;
    if (m_layerIndex >= 0)
        name = m_drawing->layers[m_layerIndex].name + QLatin1Char('/') + name;
    m_layerIndex = m_drawing->layers.size();
    VectorLayer added;
    added.name = name;
    m_drawing->layers.append(added);
}

void SvgWalker::visitNested(int node, const SvgPlace &place, const QSizeF &size)
{
    SvgPlace inner = place;
    const bool isSymbol = m_tree.nodes[node].element == SvgElement::Symbol;
    const double width = size.width() > 0.0
                             ? size.width()
                             : lengthX(node, SvgName::Width, place, place.viewport.width());
    const double height = size.height() > 0.0
                              ? size.height()
                              : lengthY(node, SvgName::Height, place, place.viewport.height());
    if (!(width > 0.0) || !(height > 0.0))
        return;
    const QPointF corner =
        isSymbol ? QPointF()
                 : QPointF(lengthX(node, SvgName::X, place), lengthY(node, SvgName::Y, place));
    const QRectF port(corner, QSizeF(width, height));
    inner.toMm = viewTransform(node, port, &inner.viewport) * place.toMm;
    const QString overflow = m_sheets.propertiesOf(m_tree, node).value(SvgName::Overflow).trimmed();
    const bool hasPort = !isSymbol || !m_tree.attribute(node, SvgName::ViewBox).isEmpty();
    if (hasPort && overflow != QLatin1String("visible") && overflow != QLatin1String("auto")) {
        const VectorPath edge = svgRect(port, 0.0, 0.0).transformed(place.toMm);
        if (isInRange(edge)) {
            auto clip = QSharedPointer<SvgClip>::create();
            clip->add({edge}, Qt::WindingFill);
            if (place.clip)
                clip->intersect(*place.clip);
            inner.clip = clip;
        }
    }
    visitChildren(node, inner);
}

void SvgWalker::visitUse(int node, const SvgPlace &place)
{
    const QString href = m_tree.attribute(node, SvgName::Href);
    const QString id = svgReference(href);
    const int target = m_tree.idToNode.value(id, -1);
    if (id.isEmpty() && !href.trimmed().isEmpty()) {
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "references to other files"), node);
        return;
    }
    if (target < 0) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "references to nothing"), node);
        return;
    }
    if (m_usesOpen.contains(target) || target == 0) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "elements that show themselves"), node);
        return;
    }
    for (int above = m_tree.nodes[node].parent; above >= 0; above = m_tree.nodes[above].parent) {
        if (above == target) {
            note(VectorNote::Kind::Damaged,
                 QCoreApplication::translate("vectorkit", "elements that show themselves"), node);
            return;
        }
    }
    SvgPlace inner = place;
    inner.toMm = QTransform::fromTranslate(lengthX(node, SvgName::X, place),
                                           lengthY(node, SvgName::Y, place)) *
                 place.toMm;
    m_usesOpen.append(target);
    const SvgElement element = m_tree.nodes[target].element;
    if (element == SvgElement::Symbol || element == SvgElement::Svg) {
        const QSizeF size(lengthX(node, SvgName::Width, place),
                          lengthY(node, SvgName::Height, place));
        SvgPlace entered;
        if (inner.depth <= kMostDepth && enter(target, inner, &entered))
            visitNested(target, entered, size);
    } else {
        visit(target, inner);
    }
    m_usesOpen.removeLast();
}

/** Shows the first child that can be shown. */
void SvgWalker::visitSwitch(int node, const SvgPlace &place)
{
    const QString language = QLocale().name().section(QLatin1Char('_'), 0, 0);
    for (int child = m_tree.nodes[node].firstChild; child >= 0;
         child = m_tree.nodes[child].nextSibling) {
        const SvgElement element = m_tree.nodes[child].element;
        if (element == SvgElement::Foreign || element == SvgElement::Characters ||
            element == SvgElement::ForeignObject)
            continue;
        if (!m_tree.attribute(child, SvgName::RequiredExtensions).isEmpty())
            continue;
        const QString wanted = m_tree.attribute(child, SvgName::SystemLanguage);
        bool isFit = wanted.isNull();
        for (const QString &one : wanted.split(QLatin1Char(',')))
            isFit = isFit || one.trimmed().section(QLatin1Char('-'), 0, 0) == language;
        if (isFit) {
            visit(child, place);
            return;
        }
    }
}

QVector<VectorPath> SvgWalker::outlineOf(int node, const SvgPlace &place)
{
    QVector<VectorPath> paths;
    const auto x = [&](SvgName name) { return lengthX(node, name, place); };
    const auto y = [&](SvgName name) { return lengthY(node, name, place); };
    const double whole =
        std::hypot(place.viewport.width(), place.viewport.height()) / std::sqrt(2.0);
    const SvgElement element = m_tree.nodes[node].element;
    switch (element) {
    case SvgElement::Path: {
        int damageAt = 0;
        const QString declared = pathDataOf(place.geometry.value(SvgName::D));
        const QString data = declared.isNull() ? m_tree.attribute(node, SvgName::D) : declared;
        if (!parseSvgPath(data, &paths, &damageAt))
            note(VectorNote::Kind::Damaged,
                 QCoreApplication::translate("vectorkit", "paths that end where they are damaged"),
                 node);
        break;
    }
    case SvgElement::Rect: {
        const QSizeF size(x(SvgName::Width), y(SvgName::Height));
        double rx = lengthX(node, SvgName::Rx, place, -1.0);
        double ry = lengthY(node, SvgName::Ry, place, -1.0);
        rx = rx < 0.0 ? ry : rx;
        ry = ry < 0.0 ? rx : ry;
        if (size.width() > 0.0 && size.height() > 0.0)
            paths.append(svgRect(QRectF(QPointF(x(SvgName::X), y(SvgName::Y)), size), rx, ry));
        break;
    }
    case SvgElement::Circle: {
        const double r = length(node, SvgName::R, whole, place);
        if (r > 0.0)
            paths.append(svgEllipse({x(SvgName::Cx), y(SvgName::Cy)}, r, r));
        break;
    }
    case SvgElement::Ellipse: {
        double rx = lengthX(node, SvgName::Rx, place, -1.0);
        double ry = lengthY(node, SvgName::Ry, place, -1.0);
        rx = rx < 0.0 ? ry : rx;
        ry = ry < 0.0 ? rx : ry;
        if (rx > 0.0 && ry > 0.0)
            paths.append(svgEllipse({x(SvgName::Cx), y(SvgName::Cy)}, rx, ry));
        break;
    }
    case SvgElement::Line:
        paths.append(VectorPath::polyline(
            {{x(SvgName::X1), y(SvgName::Y1)}, {x(SvgName::X2), y(SvgName::Y2)}}));
        break;
    default: {
        bool isGood = true;
        const QVector<double> n = parseSvgNumbers(m_tree.attribute(node, SvgName::Points), &isGood);
        if (!isGood || n.size() % 2 != 0)
            note(VectorNote::Kind::Damaged,
                 QCoreApplication::translate("vectorkit", "paths that end where they are damaged"),
                 node);
        QVector<QPointF> points;
        for (int index = 0; index + 1 < n.size(); index += 2)
            points.append({n[index], n[index + 1]});
        const bool isClosed = element == SvgElement::Polygon ||
                              (points.size() > 3 && points.first() == points.last());
        if (points.size() > 1)
            paths.append(VectorPath::polyline(points, isClosed));
    }
    }
    return paths;
}

/** The colour of a paint; invalid when it shows nothing. */
QColor SvgWalker::colorOf(const SvgPaint &paint, double opacity)
{
    if (paint.kind == SvgPaint::Kind::None || opacity <= 0.0)
        return QColor();
    if (paint.kind == SvgPaint::Kind::Color) {
        QColor color = paint.color;
        if (color.alpha() == 0)
            return QColor();
        color.setAlpha(255);
        return color;
    }
    int server = m_tree.idToNode.value(paint.server, -1);
    if (server < 0)
        return paint.color;
    // A gradient without stops takes those of another.
    for (int hop = 0; hop < 10 && server >= 0; ++hop) {
        const SvgElement element = m_tree.nodes[server].element;
        if (element != SvgElement::LinearGradient && element != SvgElement::RadialGradient) {
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "patterns, filled all over"), server);
            return paint.color.isValid() ? paint.color : QColor(Qt::black);
        }
        for (int child = m_tree.nodes[server].firstChild; child >= 0;
             child = m_tree.nodes[child].nextSibling) {
            if (m_tree.nodes[child].element != SvgElement::Stop)
                continue;
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "gradients, in their first colour"),
                 server);
            QColor color(Qt::black);
            parseSvgColor(m_sheets.propertiesOf(m_tree, child).value(SvgName::StopColor), Qt::black,
                          &color);
            color.setAlpha(255);
            return color;
        }
        server = m_tree.idToNode.value(svgReference(m_tree.attribute(server, SvgName::Href)), -1);
    }
    return paint.color;
}

void SvgWalker::addShape(int node, const SvgPlace &place)
{
    const SvgStyle &style = place.style;
    if (!style.isVisible) {
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "hidden elements"),
             node);
        return;
    }
    const QColor stroke = colorOf(style.stroke, style.strokeOpacity);
    const bool isLine = m_tree.nodes[node].element == SvgElement::Line;
    const QColor fill = isLine ? QColor() : colorOf(style.fill, style.fillOpacity);
    if (!stroke.isValid() && !fill.isValid()) {
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "shapes without stroke and fill"), node);
        return;
    }
    VectorShape shape;
    shape.color = stroke.isValid() ? stroke : fill;
    shape.isStroked = stroke.isValid();
    shape.isFilled = fill.isValid();
    shape.fillRule = style.fillRule;
    if (shape.isStroked)
        shape.strokeWidthMm = style.strokeWidth * std::sqrt(std::abs(place.toMm.determinant()));
    shape.id = m_tree.attribute(node, SvgName::Id);
    if (shape.isStroked && style.isDashed)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "dashed lines, drawn through"), node);
    if (shape.isStroked && style.strokeWidth == 0.0)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "lines of no width, kept as thin ones"),
             node);
    if (style.hasMarkers)
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "markers on lines"),
             node);
    for (const VectorPath &path : outlineOf(node, place)) {
        VectorPath placed = path.transformed(place.toMm);
        if (!isInRange(placed)) {
            note(VectorNote::Kind::Damaged,
                 QCoreApplication::translate("vectorkit", "paths with coordinates out of range"),
                 node);
            continue;
        }
        // A line of no length shows by its ends alone, an area of none not at all.
        const QRectF box = placed.boundsMm();
        const bool isDot = !(box.width() > 0.0) && !(box.height() > 0.0);
        if (placed.isEmpty() || (isDot && !(shape.isStroked && style.showsDots)))
            continue;
        // What is filled alone is bounded all around.
        if (!shape.isStroked)
            placed.close();
        shape.paths.append(placed);
    }
    if (place.clip)
        addClipped(shape, *place.clip);
    else
        addPaths(shape);
}

/** What a clip lets through: lines cut where they leave it, areas closed along it. */
void SvgWalker::addClipped(const VectorShape &shape, const SvgClip &clip)
{
    if (shape.paths.isEmpty())
        return;
    const SvgClip::Cover cover = clip.coverOf(boxOf(shape.paths));
    if (cover == SvgClip::Cover::Whole) {
        addPaths(shape);
        return;
    }
    if (cover == SvgClip::Cover::None)
        return;
    if (shape.isFilled) {
        VectorShape area = shape;
        area.isStroked = false;
        area.strokeWidthMm = 0.0;
        area.paths = clip.area(shape.paths, shape.fillRule);
        area.fillRule = Qt::OddEvenFill;
        addPaths(area);
    }
    if (shape.isStroked) {
        VectorShape lines = shape;
        lines.isFilled = false;
        lines.paths = clip.lines(shape.paths);
        addPaths(lines);
    }
}

void SvgWalker::addPaths(const VectorShape &shape)
{
    for (const VectorPath &path : shape.paths)
        m_pieces += path.pieceCount();
    m_isTooLarge = m_isTooLarge || m_pieces > m_options.mostPieces;
    if (!shape.paths.isEmpty() && !m_isTooLarge)
        layer().shapes.append(shape);
}

void SvgWalker::applyClip(const QString &value, int node, SvgPlace *place)
{
    const int target = m_tree.idToNode.value(svgReference(value), -1);
    if (target < 0 || m_tree.nodes[target].element != SvgElement::ClipPath) {
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit",
                                         "clip paths that are not known, shown without them"),
             node);
        return;
    }
    if (m_tree.attribute(target, SvgName::ClipPathUnits) == QLatin1String("objectBoundingBox")) {
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit",
                                         "clip paths of relative size, shown without them"),
             node);
        return;
    }
    auto clip = QSharedPointer<SvgClip>::create();
    if (!buildClip(target, *place, 0, clip.data()))
        return;
    if (place->clip)
        clip->intersect(*place->clip);
    place->clip = clip;
}

bool SvgWalker::buildClip(int node, const SvgPlace &place, int depth, SvgClip *clip)
{
    SvgPlace inner = place;
    inner.style = m_root.style;
    inner.clip.reset();
    const SvgProperties properties = m_sheets.propertiesOf(m_tree, node);
    inner.toMm = transformOf(properties, node) * place.toMm;
    if (depth > kMostClips) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "elements that show themselves"), node);
        return false;
    }
    for (int child = m_tree.nodes[node].firstChild; child >= 0;
         child = m_tree.nodes[child].nextSibling)
        addToClip(child, inner, depth, clip);
    const int further =
        m_tree.idToNode.value(svgReference(properties.value(SvgName::ClipPathUse)), -1);
    SvgClip outer;
    if (further >= 0 && m_tree.nodes[further].element == SvgElement::ClipPath &&
        buildClip(further, place, depth + 1, &outer))
        clip->intersect(outer);
    return true;
}

/** Adds one shape of a clip path, or what it refers to. */
void SvgWalker::addToClip(int node, const SvgPlace &outer, int depth, SvgClip *clip)
{
    ++m_visited;
    m_isTooLarge = m_isTooLarge || m_visited > m_options.mostPieces;
    const SvgElement element = m_tree.nodes[node].element;
    const SvgProperties properties = m_sheets.propertiesOf(m_tree, node);
    SvgPlace place = outer;
    place.style = svgStyle(outer.style, properties, m_pixelsPerInch, 0.0);
    place.geometry = geometryOf(node, properties);
    place.toMm = transformOf(properties, node) * outer.toMm;
    if (m_isTooLarge || !place.style.isVisible ||
        properties.value(SvgName::Display).trimmed() == QLatin1String("none"))
        return;
    if (element == SvgElement::Use) {
        const int target =
            m_tree.idToNode.value(svgReference(m_tree.attribute(node, SvgName::Href)), -1);
        if (target >= 0 && m_tree.nodes[target].element != SvgElement::Use) {
            place.toMm = QTransform::fromTranslate(lengthX(node, SvgName::X, place),
                                                   lengthY(node, SvgName::Y, place)) *
                         place.toMm;
            addToClip(target, place, depth, clip);
        }
    } else if (element == SvgElement::Text) {
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "texts in clip paths"), node);
    } else if (element >= SvgElement::Path && element <= SvgElement::Polygon) {
        QVector<VectorPath> outlines;
        for (const VectorPath &path : outlineOf(node, place)) {
            const VectorPath placed = path.transformed(place.toMm);
            m_pieces += placed.pieceCount();
            if (isInRange(placed))
                outlines.append(placed);
        }
        clip->add(outlines, place.style.clipRule);
        const int further =
            m_tree.idToNode.value(svgReference(properties.value(SvgName::ClipPathUse)), -1);
        if (further >= 0)
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "clip paths within clip paths"), node);
    }
}

} // namespace vectorkit
