#include <vectorkit/svg/SvgTree_p.h>

#include <vectorkit/svg/SvgFault_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QXmlStreamReader>

namespace vectorkit {

namespace {

const QLatin1String kSvgNamespace("http://www.w3.org/2000/svg");

/** Limit: elements in one another. */
constexpr int kMostDepth = 500;

const QHash<QString, SvgElement> &elementNames()
{
    static const QHash<QString, SvgElement> kNames = [] {
        const struct
        {
            const char *name;
            SvgElement element;
        } rows[] = {{"svg", SvgElement::Svg},
                    {"g", SvgElement::G},
                    {"a", SvgElement::A},
                    {"defs", SvgElement::Defs},
                    {"symbol", SvgElement::Symbol},
                    {"use", SvgElement::Use},
                    {"switch", SvgElement::Switch},
                    {"path", SvgElement::Path},
                    {"rect", SvgElement::Rect},
                    {"circle", SvgElement::Circle},
                    {"ellipse", SvgElement::Ellipse},
                    {"line", SvgElement::Line},
                    {"polyline", SvgElement::Polyline},
                    {"polygon", SvgElement::Polygon},
                    {"text", SvgElement::Text},
                    {"tspan", SvgElement::Tspan},
                    {"textPath", SvgElement::TextPath},
                    {"tref", SvgElement::Tref},
                    {"flowRoot", SvgElement::FlowRoot},
                    {"flowRegion", SvgElement::FlowRegion},
                    {"flowPara", SvgElement::FlowPara},
                    {"flowDiv", SvgElement::FlowDiv},
                    {"flowSpan", SvgElement::FlowSpan},
                    {"image", SvgElement::Image},
                    {"clipPath", SvgElement::ClipPath},
                    {"mask", SvgElement::Mask},
                    {"filter", SvgElement::Filter},
                    {"marker", SvgElement::Marker},
                    {"pattern", SvgElement::Pattern},
                    {"linearGradient", SvgElement::LinearGradient},
                    {"radialGradient", SvgElement::RadialGradient},
                    {"stop", SvgElement::Stop},
                    {"style", SvgElement::Style},
                    {"script", SvgElement::Script},
                    {"foreignObject", SvgElement::ForeignObject},
                    {"title", SvgElement::Title},
                    {"desc", SvgElement::Desc},
                    {"metadata", SvgElement::Metadata},
                    {"animate", SvgElement::Animate},
                    {"animateTransform", SvgElement::Animate},
                    {"animateMotion", SvgElement::Animate},
                    {"animateColor", SvgElement::Animate},
                    {"set", SvgElement::Animate}};
        QHash<QString, SvgElement> names;
        for (const auto &row : rows)
            names.insert(QLatin1String(row.name), row.element);
        return names;
    }();
    return kNames;
}

const QHash<QString, SvgName> &attributeNames()
{
    static const QHash<QString, SvgName> kNames = [] {
        const struct
        {
            const char *name;
            SvgName value;
        } rows[] = {{"fill", SvgName::Fill},
                    {"fill-rule", SvgName::FillRule},
                    {"fill-opacity", SvgName::FillOpacity},
                    {"stroke", SvgName::Stroke},
                    {"stroke-opacity", SvgName::StrokeOpacity},
                    {"stroke-width", SvgName::StrokeWidth},
                    {"stroke-dasharray", SvgName::StrokeDasharray},
                    {"stroke-linecap", SvgName::StrokeLinecap},
                    {"opacity", SvgName::Opacity},
                    {"display", SvgName::Display},
                    {"visibility", SvgName::Visibility},
                    {"color", SvgName::Color},
                    {"clip-path", SvgName::ClipPathUse},
                    {"clip-rule", SvgName::ClipRule},
                    {"mask", SvgName::MaskUse},
                    {"filter", SvgName::FilterUse},
                    {"font-size", SvgName::FontSize},
                    {"font-family", SvgName::FontFamily},
                    {"font", SvgName::Font},
                    {"text-anchor", SvgName::TextAnchor},
                    {"transform", SvgName::Transform},
                    {"transform-origin", SvgName::TransformOrigin},
                    {"overflow", SvgName::Overflow},
                    {"stop-color", SvgName::StopColor},
                    {"marker-start", SvgName::MarkerStart},
                    {"marker-mid", SvgName::MarkerMid},
                    {"marker-end", SvgName::MarkerEnd},
                    {"marker", SvgName::MarkerAll},
                    {"vector-effect", SvgName::VectorEffect},
                    {"white-space", SvgName::WhiteSpace},
                    {"id", SvgName::Id},
                    {"class", SvgName::Class},
                    {"style", SvgName::StyleText},
                    {"href", SvgName::Href},
                    {"xlink:href", SvgName::Href},
                    {"x", SvgName::X},
                    {"y", SvgName::Y},
                    {"width", SvgName::Width},
                    {"height", SvgName::Height},
                    {"x1", SvgName::X1},
                    {"y1", SvgName::Y1},
                    {"x2", SvgName::X2},
                    {"y2", SvgName::Y2},
                    {"cx", SvgName::Cx},
                    {"cy", SvgName::Cy},
                    {"r", SvgName::R},
                    {"rx", SvgName::Rx},
                    {"ry", SvgName::Ry},
                    {"d", SvgName::D},
                    {"points", SvgName::Points},
                    {"viewBox", SvgName::ViewBox},
                    {"preserveAspectRatio", SvgName::PreserveAspectRatio},
                    {"clipPathUnits", SvgName::ClipPathUnits},
                    {"inkscape:groupmode", SvgName::GroupMode},
                    {"inkscape:label", SvgName::Label},
                    {"i:layer", SvgName::IsLayer},
                    {"requiredExtensions", SvgName::RequiredExtensions},
                    {"systemLanguage", SvgName::SystemLanguage},
                    {"dx", SvgName::Dx},
                    {"dy", SvgName::Dy},
                    {"rotate", SvgName::Rotate},
                    {"textLength", SvgName::TextLength},
                    {"xml:space", SvgName::Space},
                    {"sodipodi:role", SvgName::Role},
                    {"version", SvgName::Version},
                    {"inkscape:version", SvgName::EditorVersion},
                    {"sodipodi:version", SvgName::OldEditorVersion},
                    {"type", SvgName::Type}};
        QHash<QString, SvgName> names;
        for (const auto &row : rows)
            names.insert(QLatin1String(row.name), row.value);
        return names;
    }();
    return kNames;
}

/** Builds the tree while the XML goes by. */
class TreeReader
{
public:
    TreeReader(const QByteArray &source, const ReadOptions &readOptions, SvgTree *target)
        : m_bytes(source), m_options(readOptions), m_tree(target), m_xml(source)
    {
        // Prefixes are often used without being declared where a part of a file was cut out.
        m_xml.setNamespaceProcessing(false);
    }

    bool read(ReadFailure *failure);

private:
    struct Prefix
    {
        int depth;
        QString name;
        bool isSvg;
    };

    void startElement();
    void declarePrefixes(const QXmlStreamAttributes &attributes);
    SvgElement elementOf(const QStringRef &qualifiedName) const;
    void addAttributes(const QXmlStreamAttributes &attributes, SvgNode *node);
    void addNode(SvgNode node);
    void characters();
    void comment();
    bool fail(ReadFailure *failure) const;

    const QByteArray &m_bytes;
    const ReadOptions &m_options;
    SvgTree *m_tree;
    QXmlStreamReader m_xml;
    QVector<int> m_open;      ///< elements that the next one is in
    QVector<int> m_lastChild; ///< of each of them; -1: none yet
    QVector<Prefix> m_prefixes;
    int m_foreignDepth = 0; ///< elements of other name spaces that are open
    bool m_isCancelled = false;
    bool m_isTooDeep = false;
    bool m_isNoSvg = false;
};

bool TreeReader::read(ReadFailure *failure)
{
    qint64 tokens = 0;
    while (!m_xml.atEnd() && !m_isCancelled && !m_isTooDeep && !m_isNoSvg) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            if (m_foreignDepth > 0) {
                --m_foreignDepth;
            } else {
                m_open.removeLast();
                m_lastChild.removeLast();
            }
            while (!m_prefixes.isEmpty() &&
                   m_prefixes.last().depth > m_open.size() + m_foreignDepth)
                m_prefixes.removeLast();
            break;
        case QXmlStreamReader::Characters:
            characters();
            break;
        case QXmlStreamReader::Comment:
            comment();
            break;
        default:
            break;
        }
        if (m_options.progress && ++tokens % 1024 == 0) {
            const double done = double(m_xml.characterOffset()) / std::max(1, m_bytes.size());
            m_isCancelled = !m_options.progress(std::min(0.5, done * 0.5));
        }
    }
    return fail(failure);
}

/** True when nothing failed; else tells what did. */
bool TreeReader::fail(ReadFailure *failure) const
{
    const bool isRead = !m_isTooDeep && !m_xml.hasError();
    if (m_isCancelled) {
        *failure = {ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."), QString()};
    } else if (m_isNoSvg || (isRead && m_tree->nodes.isEmpty())) {
        *failure = {ReadFailure::Kind::WrongFormat,
                    QCoreApplication::translate("vectorkit", "This XML file is no SVG drawing."),
                    QString()};
    } else if (m_isTooDeep) {
        *failure = {
            ReadFailure::Kind::TooLarge,
            QCoreApplication::translate("vectorkit", "More than %1 elements stand in one another.")
                .arg(kMostDepth),
            QString()};
    } else if (m_xml.hasError()) {
        const bool isNothing = m_tree->nodes.isEmpty();
        *failure =
            svgFaultOf(m_xml, m_bytes,
                       isNothing ? ReadFailure::Kind::WrongFormat : ReadFailure::Kind::Damaged);
    } else {
        return true;
    }
    return false;
}

void TreeReader::declarePrefixes(const QXmlStreamAttributes &attributes)
{
    const int depth = m_open.size() + m_foreignDepth + 1;
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringRef name = attribute.qualifiedName();
        if (!name.startsWith(QLatin1String("xmlns")))
            continue;
        if (name.size() == 5)
            m_prefixes.append({depth, QString(), attribute.value() == kSvgNamespace});
        else if (name.at(5) == QLatin1Char(':'))
            m_prefixes.append({depth, name.mid(6).toString(), attribute.value() == kSvgNamespace});
    }
}

SvgElement TreeReader::elementOf(const QStringRef &qualifiedName) const
{
    const int colon = qualifiedName.indexOf(QLatin1Char(':'));
    const QStringRef prefix = colon < 0 ? QStringRef() : qualifiedName.left(colon);
    // Without a declaration a plain name is one of the format, and so is the usual prefix.
    bool isSvg = prefix.isEmpty() || prefix == QLatin1String("svg");
    for (int index = m_prefixes.size() - 1; index >= 0; --index) {
        if (m_prefixes[index].name == prefix) {
            isSvg = m_prefixes[index].isSvg;
            break;
        }
    }
    if (!isSvg)
        return SvgElement::Foreign;
    return elementNames().value(qualifiedName.mid(colon + 1).toString(), SvgElement::Other);
}

void TreeReader::startElement()
{
    if (m_foreignDepth > 0) {
        ++m_foreignDepth;
        m_isTooDeep = m_open.size() + m_foreignDepth > kMostDepth;
        return;
    }
    const QXmlStreamAttributes attributes = m_xml.attributes();
    declarePrefixes(attributes);
    SvgNode node;
    node.element = elementOf(m_xml.qualifiedName());
    if (m_tree->nodes.isEmpty() && node.element != SvgElement::Svg) {
        m_isNoSvg = true;
        return;
    }
    if (node.element == SvgElement::Foreign || node.element == SvgElement::Metadata) {
        ++m_foreignDepth;
        return;
    }
    if (node.element == SvgElement::Other)
        node.text = m_xml.name().toString();
    addAttributes(attributes, &node);
    addNode(node);
    m_open.append(m_tree->nodes.size() - 1);
    m_lastChild.append(-1);
    m_isTooDeep = m_open.size() > kMostDepth;
}

void TreeReader::addAttributes(const QXmlStreamAttributes &attributes, SvgNode *node)
{
    node->firstAttribute = m_tree->attributes.size();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const SvgName name = svgNameOf(attribute.qualifiedName().toString());
        if (name == SvgName::Unknown)
            continue;
        const QString value = attribute.value().toString();
        if (name == SvgName::Id && !m_tree->idToNode.contains(value))
            m_tree->idToNode.insert(value, m_tree->nodes.size());
        m_tree->attributes.append({name, value});
    }
    node->attributeCount = m_tree->attributes.size() - node->firstAttribute;
}

void TreeReader::addNode(SvgNode node)
{
    const int index = m_tree->nodes.size();
    node.line = int(m_xml.lineNumber());
    if (!m_open.isEmpty()) {
        node.parent = m_open.last();
        if (m_lastChild.last() < 0)
            m_tree->nodes[node.parent].firstChild = index;
        else
            m_tree->nodes[m_lastChild.last()].nextSibling = index;
        m_lastChild.last() = index;
    }
    m_tree->nodes.append(node);
}

void TreeReader::characters()
{
    if (m_open.isEmpty() || m_foreignDepth > 0)
        return;
    switch (m_tree->nodes[m_open.last()].element) {
    case SvgElement::Text:
    case SvgElement::Tspan:
    case SvgElement::TextPath:
    case SvgElement::A:
    case SvgElement::FlowPara:
    case SvgElement::FlowDiv:
    case SvgElement::FlowSpan:
    case SvgElement::Style: {
        SvgNode node;
        node.element = SvgElement::Characters;
        node.text = m_xml.text().toString();
        addNode(node);
        break;
    }
    default:
        break;
    }
}

void TreeReader::comment()
{
    if (!m_tree->producer.isEmpty())
        return;
    const QString text = m_xml.text().toString().simplified();
    for (const QLatin1String start : {QLatin1String("Generator: "), QLatin1String("Creator: "),
                                      QLatin1String("Created with ")}) {
        if (text.startsWith(start, Qt::CaseInsensitive)) {
            m_tree->producer = text.mid(start.size()).left(200);
            // "Adobe Illustrator 15.1.0, SVG Export Plug-In . SVG Version: 6.00 Build 0)"
            const int end = m_tree->producer.indexOf(QLatin1Char(','));
            if (end > 0)
                m_tree->producer.truncate(end);
            return;
        }
    }
}

} // namespace

SvgName svgNameOf(const QString &name) { return attributeNames().value(name, SvgName::Unknown); }

QString svgElementName(const SvgNode &node)
{
    static const QHash<int, QString> kNames = [] {
        QHash<int, QString> names;
        const QHash<QString, SvgElement> &elements = elementNames();
        for (auto it = elements.begin(); it != elements.end(); ++it)
            names.insert(int(it.value()), it.key());
        return names;
    }();
    return node.element == SvgElement::Other ? node.text : kNames.value(int(node.element));
}

bool isSvgGeometry(SvgName name)
{
    switch (name) {
    case SvgName::X:
    case SvgName::Y:
    case SvgName::Width:
    case SvgName::Height:
    case SvgName::Cx:
    case SvgName::Cy:
    case SvgName::R:
    case SvgName::Rx:
    case SvgName::Ry:
    case SvgName::D:
        return true;
    default:
        return false;
    }
}

QString SvgTree::attribute(int node, SvgName name) const
{
    const int first = nodes[node].firstAttribute;
    for (int index = first; index < first + nodes[node].attributeCount; ++index) {
        if (attributes[index].name == name)
            return attributes[index].value;
    }
    return QString();
}

QString SvgTree::charactersOf(int node) const
{
    QString all;
    // Children stand behind their parents, and all of a parent's before its next sibling.
    for (int index = node + 1; index < nodes.size(); ++index) {
        int above = nodes[index].parent;
        while (above > node)
            above = nodes[above].parent;
        if (above != node)
            break;
        if (nodes[index].element == SvgElement::Characters)
            all += nodes[index].text;
    }
    return all;
}

bool readSvgTree(const QByteArray &bytes, const ReadOptions &options, SvgTree *tree,
                 ReadFailure *failure)
{
    return TreeReader(bytes, options, tree).read(failure);
}

} // namespace vectorkit
