#pragma once

#include <vectorkit/VectorDrawing.h>
#include <vectorkit/svg/SvgTree_p.h>

#include <QtGui/QColor>

namespace vectorkit {

/** What a stroke or a fill is painted with. */
struct SvgPaint
{
    enum class Kind : quint8 { None, Color, Server };
    Kind kind = Kind::None;
    QColor color;
    QString server; ///< id of a gradient or a pattern
};

/** What elements hand down to those inside them. */
struct SvgStyle
{
    QColor color = Qt::black;
    SvgPaint fill = {SvgPaint::Kind::Color, Qt::black, QString()};
    SvgPaint stroke;
    double fillOpacity = 1.0;
    double strokeOpacity = 1.0;
    double strokeWidth = 1.0; ///< user units
    Qt::FillRule fillRule = Qt::WindingFill;
    Qt::FillRule clipRule = Qt::WindingFill;
    bool isVisible = true;
    bool isDashed = false;
    bool showsDots = false; ///< lines have ends of their own, so that those of no length show
    bool hasMarkers = false;
    bool keepsSpaces = false;
    double fontSize = 16.0; ///< user units
    QString fontFamily;
    TextAnchor anchor = TextAnchor::Left;
};

/** The properties of one element by name, the strongest of each. */
class SvgProperties
{
public:
    void set(SvgName name, const QString &value, bool isImportant);
    /** Null when the element does not say it. */
    QString value(SvgName name) const;
    /** Those alone that say where a shape runs. */
    SvgProperties geometry() const;

private:
    struct Row
    {
        SvgName name;
        bool isImportant;
        QString value;
    };
    QVector<Row> m_rows;
};

/** The style sheets of a drawing. */
class SvgSheets
{
public:
    /** Adds the rules of a sheet; gives how many could not be understood. */
    int add(const QString &text);

    /** The properties of an element: attributes, then sheets, then its own `style`. */
    SvgProperties propertiesOf(const SvgTree &tree, int node) const;

private:
    /** One step of a selector: "path.cut#a". */
    struct Compound
    {
        QString element; ///< empty: any
        QString id;
        QStringList classes;
        bool isChild = false; ///< right inside the one before it
    };
    struct Declaration
    {
        SvgName name;
        QString value;
        bool isImportant;
    };
    struct Rule
    {
        QVector<Compound> selector;
        int strength = 0;
        QVector<Declaration> declarations;
    };

    static bool parseSelector(const QString &text, Rule *rule);
    static QVector<Declaration> parseDeclarations(const QString &text);
    static bool isMatch(const SvgTree &tree, int node, const Compound &compound);
    static bool isMatch(const SvgTree &tree, int node, const QVector<Compound> &selector,
                        int count);
    void addRule(const Rule &rule);

    QVector<Rule> m_rules;
    QMultiHash<QString, int> m_keyToRules; ///< "#id", ".class", "element" or "*" of the last step
};

/** A colour in any of its forms; false when the text is none. */
bool parseSvgColor(const QString &text, const QColor &current, QColor *color);

/** The style of an element inside one of the style `outer`. */
SvgStyle svgStyle(const SvgStyle &outer, const SvgProperties &properties, double pixelsPerInch,
                  double viewportSize);

/** The id in "url(#id)" or "#id"; empty when the text refers to no element of the file. */
QString svgReference(const QString &text);

} // namespace vectorkit
