#pragma once

#include <vectorkit/VectorReader.h>

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace vectorkit {

/** The elements that are told apart; `Other` is any other of the format. */
enum class SvgElement : quint8 {
    Other,
    Svg,
    G,
    A,
    Defs,
    Symbol,
    Use,
    Switch,
    Path,
    Rect,
    Circle,
    Ellipse,
    Line,
    Polyline,
    Polygon,
    Text,
    Tspan,
    TextPath,
    Tref,
    FlowRoot,
    FlowRegion,
    FlowPara,
    FlowDiv,
    FlowSpan,
    Image,
    ClipPath,
    Mask,
    Filter,
    Marker,
    Pattern,
    LinearGradient,
    RadialGradient,
    Stop,
    Style,
    Script,
    ForeignObject,
    Title,
    Desc,
    Metadata,
    Animate,
    Characters,
    Foreign
};

/** The attributes that are kept; properties of style come first, in one run. */
enum class SvgName : quint8 {
    Fill,
    FillRule,
    FillOpacity,
    Stroke,
    StrokeOpacity,
    StrokeWidth,
    StrokeDasharray,
    StrokeLinecap,
    Opacity,
    Display,
    Visibility,
    Color,
    ClipPathUse,
    ClipRule,
    MaskUse,
    FilterUse,
    FontSize,
    FontFamily,
    Font,
    TextAnchor,
    Transform,
    TransformOrigin,
    Overflow,
    StopColor,
    MarkerStart,
    MarkerMid,
    MarkerEnd,
    MarkerAll,
    VectorEffect,
    WhiteSpace,
    LastProperty = WhiteSpace,
    Id,
    Class,
    StyleText,
    Href,
    X,
    Y,
    Width,
    Height,
    X1,
    Y1,
    X2,
    Y2,
    Cx,
    Cy,
    R,
    Rx,
    Ry,
    D,
    Points,
    ViewBox,
    PreserveAspectRatio,
    ClipPathUnits,
    GroupMode,
    Label,
    IsLayer,
    RequiredExtensions,
    SystemLanguage,
    Dx,
    Dy,
    Rotate,
    TextLength,
    Space,
    Role,
    Version,
    EditorVersion,
    OldEditorVersion,
    Type,
    Unknown
};

/** The attribute or property of this name, its prefix taken off; `Unknown` for any other. */
SvgName svgNameOf(const QString &name);

/** Whether style sheets may say it as well although it is no matter of looks: where a shape runs.
 */
bool isSvgGeometry(SvgName name);

struct SvgAttribute
{
    SvgName name = SvgName::Unknown;
    QString value;
};

/** One element, or a run of characters between elements. */
struct SvgNode
{
    SvgElement element = SvgElement::Other;
    int parent = -1;
    int firstChild = -1;
    int nextSibling = -1;
    int firstAttribute = 0;
    int attributeCount = 0;
    int line = 0;
    QString text; ///< of characters; of other elements their name
};

/** The name of an element as files write it, without a prefix; empty for characters. */
QString svgElementName(const SvgNode &node);

/** What a file of the format holds, in flat lists. */
struct SvgTree
{
    QVector<SvgNode> nodes; ///< the root first; parents before their children
    QVector<SvgAttribute> attributes;
    QHash<QString, int> idToNode; ///< the first that has the id
    QString producer;             ///< as its comment says it; may be empty

    /** The value of an attribute; null when the element has none. */
    QString attribute(int node, SvgName name) const;

    /** All characters in an element, those of its children included. */
    QString charactersOf(int node) const;
};

/**
 * Reads the elements of a file. Nothing outside of it is opened; what it declares as entities is
 * replaced within the bounds of the XML reader.
 */
bool readSvgTree(const QByteArray &bytes, const ReadOptions &options, SvgTree *tree,
                 ReadFailure *failure);

} // namespace vectorkit
