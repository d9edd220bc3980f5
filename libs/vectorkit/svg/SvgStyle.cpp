#include <vectorkit/svg/SvgStyle_p.h>

#include <vectorkit/svg/SvgScan_p.h>

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

/** A part of a colour: a number up to `whole`, or a percentage of it. */
bool colorPart(const QString &text, double whole, double *part)
{
    SvgLength length;
    if (!parseSvgLength(text, &length))
        return false;
    if (length.unit == SvgUnit::Percent)
        *part = length.value / 100.0;
    else if (length.unit == SvgUnit::None)
        *part = length.value / whole;
    else
        return false;
    *part = qBound(0.0, *part, 1.0);
    return true;
}

/** rgb(), rgba(), hsl(), hsla(), with commas or blanks. */
bool colorFunction(const QString &text, QColor *color)
{
    const int open = text.indexOf(QLatin1Char('('));
    const int close = text.indexOf(QLatin1Char(')'));
    if (open < 0 || close < open)
        return false;
    const QString name = text.left(open).trimmed();
    QString inside = text.mid(open + 1, close - open - 1);
    inside.replace(QLatin1Char(','), QLatin1Char(' ')).replace(QLatin1Char('/'), QLatin1Char(' '));
    const QStringList parts = inside.simplified().split(QLatin1Char(' '));
    if (parts.size() < 3 || parts.size() > 4)
        return false;
    double a = 1.0;
    if (parts.size() == 4 && !colorPart(parts[3], 1.0, &a))
        return false;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    if (name == QLatin1String("rgb") || name == QLatin1String("rgba")) {
        if (!colorPart(parts[0], 255.0, &x) || !colorPart(parts[1], 255.0, &y) ||
            !colorPart(parts[2], 255.0, &z))
            return false;
        *color = QColor::fromRgbF(x, y, z, a);
        return true;
    }
    if (name != QLatin1String("hsl") && name != QLatin1String("hsla"))
        return false;
    QString hue = parts[0];
    if (hue.endsWith(QLatin1String("deg")))
        hue.chop(3);
    bool isNumber = false;
    const double degrees = hue.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(degrees) || !colorPart(parts[1], 100.0, &y) ||
        !colorPart(parts[2], 100.0, &z))
        return false;
    x = std::fmod(std::fmod(degrees, 360.0) + 360.0, 360.0) / 360.0;
    *color = QColor::fromHslF(std::min(x, 1.0), y, z, a).toRgb();
    return true;
}

/** #rgb, #rgba, #rrggbb, #rrggbbaa. */
bool hexColor(const QString &text, QColor *color)
{
    QString digits = text.mid(1);
    if (digits.size() == 3 || digits.size() == 4) {
        QString twice;
        for (const QChar digit : qAsConst(digits))
            twice += QString(2, digit);
        digits = twice;
    }
    bool isNumber = false;
    const uint value = digits.toUInt(&isNumber, 16);
    if (!isNumber || (digits.size() != 6 && digits.size() != 8))
        return false;
    *color = digits.size() == 6 ? QColor::fromRgb(value)
                                : QColor::fromRgb(int(value >> 24), int(value >> 16 & 255),
                                                  int(value >> 8 & 255), int(value & 255));
    return true;
}

/** Sets a paint; what can't be understood leaves the one that was handed down. */
void setPaint(const QString &text, const QColor &current, SvgPaint *paint)
{
    const QString value = text.trimmed();
    if (value == QLatin1String("none")) {
        *paint = SvgPaint();
    } else if (value.startsWith(QLatin1String("url("))) {
        paint->kind = SvgPaint::Kind::Server;
        paint->server = svgReference(value);
        paint->color = QColor();
        const QString rest = value.mid(value.indexOf(QLatin1Char(')')) + 1).trimmed();
        parseSvgColor(rest, current, &paint->color);
    } else {
        QColor color;
        if (parseSvgColor(value, current, &color))
            *paint = {SvgPaint::Kind::Color, color, QString()};
    }
}

void setOpacity(const QString &text, double *opacity) { colorPart(text, 1.0, opacity); }

bool isReference(const QString &value)
{
    return !value.isEmpty() && value.trimmed() != QLatin1String("none");
}

double namedFontSize(const QString &text, double outer)
{
    static const struct
    {
        const char *name;
        double size;
    } kSizes[] = {{"xx-small", 9.6}, {"x-small", 12.0}, {"small", 13.6},   {"medium", 16.0},
                  {"large", 19.2},   {"x-large", 24.0}, {"xx-large", 32.0}};
    for (const auto &known : kSizes) {
        if (text == QLatin1String(known.name))
            return known.size;
    }
    if (text == QLatin1String("larger"))
        return outer * 1.2;
    if (text == QLatin1String("smaller"))
        return outer / 1.2;
    return outer;
}

void setFontSize(const QString &text, double pixelsPerInch, SvgStyle *style)
{
    const QString value = text.trimmed();
    SvgLength length;
    if (!parseSvgLength(value, &length))
        style->fontSize = namedFontSize(value, style->fontSize);
    else if (length.value >= 0.0)
        style->fontSize = length.toUser(pixelsPerInch, style->fontSize, style->fontSize);
}

QString firstFamily(const QString &text)
{
    QString family = text.section(QLatin1Char(','), 0, 0).trimmed();
    for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')})
        family.remove(quote);
    return family.trimmed();
}

/** "italic bold 12px/30px Georgia, serif": the size is the first length, the family follows. */
void setFont(const QString &text, double pixelsPerInch, SvgStyle *style)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (int index = 0; index < words.size(); ++index) {
        SvgLength length;
        const QString size = words[index].section(QLatin1Char('/'), 0, 0);
        if (parseSvgLength(size, &length) && length.unit != SvgUnit::None) {
            setFontSize(size, pixelsPerInch, style);
            style->fontFamily =
                firstFamily(QStringList(words.mid(index + 1)).join(QLatin1Char(' ')));
            return;
        }
    }
}

bool hasSeen(const QStringList &dashes)
{
    for (const QString &dash : dashes) {
        SvgLength length;
        if (parseSvgLength(dash, &length) && length.value > 0.0)
            return true;
    }
    return false;
}

QString withoutComments(const QString &text)
{
    QString left;
    int at = 0;
    while (at < text.size()) {
        const int open = text.indexOf(QLatin1String("/*"), at);
        if (open < 0)
            break;
        left += text.midRef(at, open - at);
        left += QLatin1Char(' ');
        const int close = text.indexOf(QLatin1String("*/"), open + 2);
        at = close < 0 ? text.size() : close + 2;
    }
    return left + text.midRef(at);
}

} // namespace

void SvgProperties::set(SvgName name, const QString &value, bool isImportant)
{
    for (Row &row : m_rows) {
        if (row.name != name)
            continue;
        if (!row.isImportant || isImportant) {
            row.value = value;
            row.isImportant = isImportant;
        }
        return;
    }
    m_rows.append({name, isImportant, value});
}

SvgProperties SvgProperties::geometry() const
{
    SvgProperties some;
    for (const Row &row : m_rows) {
        if (isSvgGeometry(row.name))
            some.m_rows.append(row);
    }
    return some;
}

QString SvgProperties::value(SvgName name) const
{
    for (const Row &row : m_rows) {
        if (row.name == name)
            return row.value;
    }
    return QString();
}

int SvgSheets::add(const QString &source)
{
    QString text = withoutComments(source);
    text.remove(QLatin1String("<!--")).remove(QLatin1String("-->"));
    int misread = 0;
    int at = 0;
    while (at < text.size()) {
        const int open = text.indexOf(QLatin1Char('{'), at);
        const int semicolon = text.indexOf(QLatin1Char(';'), at);
        const QString head = text.mid(at, (open < 0 ? text.size() : open) - at).trimmed();
        if (head.startsWith(QLatin1Char('@')) && semicolon >= 0 &&
            (open < 0 || semicolon < open)) { // "@import ...;", "@charset ...;": not followed
            ++misread;
            at = semicolon + 1;
            continue;
        }
        if (open < 0)
            return misread + (head.isEmpty() ? 0 : 1);
        int close = open + 1;
        for (int depth = 1; close < text.size(); ++close) {
            const QChar c = text[close];
            depth += c == QLatin1Char('{') ? 1 : c == QLatin1Char('}') ? -1 : 0;
            if (depth == 0)
                break;
        }
        if (head.startsWith(QLatin1Char('@'))) {
            misread += head.startsWith(QLatin1String("@font-face")) ? 0 : 1;
        } else {
            const auto declarations = parseDeclarations(text.mid(open + 1, close - open - 1));
            for (const QString &selector : head.split(QLatin1Char(','))) {
                Rule rule;
                rule.declarations = declarations;
                if (parseSelector(selector.simplified(), &rule))
                    addRule(rule);
                else
                    ++misread;
            }
        }
        at = close + 1;
    }
    return misread;
}

void SvgSheets::addRule(const Rule &rule)
{
    const Compound &last = rule.selector.last();
    QString key = QStringLiteral("*");
    if (!last.id.isEmpty())
        key = QLatin1Char('#') + last.id;
    else if (!last.classes.isEmpty())
        key = QLatin1Char('.') + last.classes.first();
    else if (!last.element.isEmpty())
        key = last.element;
    m_keyToRules.insert(key, m_rules.size());
    m_rules.append(rule);
}

bool SvgSheets::parseSelector(const QString &text, Rule *rule)
{
    static const QRegularExpression kStep(
        QStringLiteral("\\G(\\*|[\\w-]+)?((?:[.#][\\w\\-\\x{80}-\\x{ffff}]+)*)\\s*(>?)\\s*"));
    static const QRegularExpression kPart(QStringLiteral("([.#])([\\w\\-\\x{80}-\\x{ffff}]+)"));
    int at = 0;
    bool isChild = false;
    while (at < text.size()) {
        const QRegularExpressionMatch step = kStep.match(text, at);
        if (!step.hasMatch() || (step.capturedLength(1) == 0 && step.capturedLength(2) == 0))
            return false;
        Compound compound;
        compound.isChild = isChild;
        if (step.captured(1) != QLatin1String("*"))
            compound.element = step.captured(1);
        rule->strength += compound.element.isEmpty() ? 0 : 1;
        auto parts = kPart.globalMatch(step.captured(2));
        while (parts.hasNext()) {
            const QRegularExpressionMatch part = parts.next();
            if (part.captured(1) == QLatin1String("#")) {
                compound.id = part.captured(2);
                rule->strength += 10000;
            } else {
                compound.classes.append(part.captured(2));
                rule->strength += 100;
            }
        }
        rule->selector.append(compound);
        isChild = step.capturedLength(3) > 0;
        at = step.capturedEnd();
    }
    return !rule->selector.isEmpty() && !isChild;
}

QVector<SvgSheets::Declaration> SvgSheets::parseDeclarations(const QString &text)
{
    QVector<Declaration> declarations;
    for (const QStringRef &part : text.splitRef(QLatin1Char(';'))) {
        const int colon = part.indexOf(QLatin1Char(':'));
        if (colon < 0)
            continue;
        const SvgName name = svgNameOf(part.left(colon).trimmed().toString().toLower());
        if (name > SvgName::LastProperty && !isSvgGeometry(name))
            continue;
        QString value = part.mid(colon + 1).trimmed().toString();
        const int mark = value.lastIndexOf(QLatin1Char('!'));
        const bool isImportant =
            mark >= 0 && value.midRef(mark + 1).trimmed().compare(QLatin1String("important"),
                                                                  Qt::CaseInsensitive) == 0;
        if (isImportant)
            value = value.left(mark).trimmed();
        declarations.append({name, value, isImportant});
    }
    return declarations;
}

bool SvgSheets::isMatch(const SvgTree &tree, int node, const Compound &compound)
{
    if (!compound.id.isEmpty() && tree.attribute(node, SvgName::Id) != compound.id)
        return false;
    if (!compound.element.isEmpty() && svgElementName(tree.nodes[node]) != compound.element)
        return false;
    if (compound.classes.isEmpty())
        return true;
    const QStringList classes =
        tree.attribute(node, SvgName::Class).simplified().split(QLatin1Char(' '));
    return std::all_of(compound.classes.begin(), compound.classes.end(),
                       [&](const QString &name) { return classes.contains(name); });
}

bool SvgSheets::isMatch(const SvgTree &tree, int node, const QVector<Compound> &selector, int count)
{
    if (!isMatch(tree, node, selector[count - 1]))
        return false;
    // From the inside out; the nearest fit of each step will do unless a step wants a parent.
    int above = tree.nodes[node].parent;
    for (int step = count - 2; step >= 0; --step) {
        if (selector[step + 1].isChild) {
            if (above < 0 || !isMatch(tree, above, selector[step]))
                return false;
        } else {
            while (above >= 0 && !isMatch(tree, above, selector[step]))
                above = tree.nodes[above].parent;
            if (above < 0)
                return false;
        }
        above = tree.nodes[above].parent;
    }
    return true;
}

SvgProperties SvgSheets::propertiesOf(const SvgTree &tree, int node) const
{
    SvgProperties properties;
    const SvgNode &element = tree.nodes[node];
    QString own;
    for (int index = element.firstAttribute;
         index < element.firstAttribute + element.attributeCount; ++index) {
        const SvgAttribute &attribute = tree.attributes[index];
        if (attribute.name <= SvgName::LastProperty)
            properties.set(attribute.name, attribute.value, false);
        else if (attribute.name == SvgName::StyleText)
            own = attribute.value;
    }
    if (!m_rules.isEmpty()) {
        QVector<int> found;
        const auto collect = [&](const QString &key) {
            for (auto it = m_keyToRules.constFind(key);
                 it != m_keyToRules.constEnd() && it.key() == key; ++it) {
                const QVector<Compound> &selector = m_rules[it.value()].selector;
                if (isMatch(tree, node, selector, selector.size()))
                    found.append(it.value());
            }
        };
        collect(QStringLiteral("*"));
        collect(svgElementName(element));
        const QString id = tree.attribute(node, SvgName::Id);
        if (!id.isEmpty())
            collect(QLatin1Char('#') + id);
        for (const QString &name :
             tree.attribute(node, SvgName::Class).simplified().split(QLatin1Char(' ')))
            collect(QLatin1Char('.') + name);
        std::sort(found.begin(), found.end(), [&](int a, int b) {
            return m_rules[a].strength != m_rules[b].strength
                       ? m_rules[a].strength < m_rules[b].strength
                       : a < b;
        });
        for (const int index : qAsConst(found)) {
            for (const Declaration &declaration : m_rules[index].declarations)
                properties.set(declaration.name, declaration.value, declaration.isImportant);
        }
    }
    if (!own.isEmpty()) {
        for (const Declaration &declaration : parseDeclarations(withoutComments(own)))
            properties.set(declaration.name, declaration.value, declaration.isImportant);
    }
    return properties;
}

bool parseSvgColor(const QString &text, const QColor &current, QColor *color)
{
    const QString value = text.trimmed().toLower();
    if (value.isEmpty())
        return false;
    if (value == QLatin1String("currentcolor")) {
        *color = current;
        return true;
    }
    if (value.startsWith(QLatin1Char('#')))
        return hexColor(value.section(QLatin1Char(' '), 0, 0), color);
    if (value.contains(QLatin1Char('(')))
        return colorFunction(value, color);
    if (!QColor::isValidColor(value))
        return false;
    *color = QColor(value);
    return true;
}

SvgStyle svgStyle(const SvgStyle &outer, const SvgProperties &properties, double pixelsPerInch,
                  double viewportSize)
{
    SvgStyle style = outer;
    const auto with = [&](SvgName name, auto use) {
        const QString value = properties.value(name);
        if (!value.isEmpty() && value != QLatin1String("inherit"))
            use(value);
    };
    with(SvgName::Color, [&](const QString &v) { parseSvgColor(v, outer.color, &style.color); });
    with(SvgName::Fill, [&](const QString &v) { setPaint(v, style.color, &style.fill); });
    with(SvgName::Stroke, [&](const QString &v) { setPaint(v, style.color, &style.stroke); });
    with(SvgName::FillOpacity, [&](const QString &v) { setOpacity(v, &style.fillOpacity); });
    with(SvgName::StrokeOpacity, [&](const QString &v) { setOpacity(v, &style.strokeOpacity); });
    with(SvgName::Font, [&](const QString &v) { setFont(v, pixelsPerInch, &style); });
    with(SvgName::FontSize, [&](const QString &v) { setFontSize(v, pixelsPerInch, &style); });
    with(SvgName::FontFamily, [&](const QString &v) { style.fontFamily = firstFamily(v); });
    with(SvgName::StrokeWidth, [&](const QString &v) {
        SvgLength length;
        if (parseSvgLength(v, &length) && length.value >= 0.0)
            style.strokeWidth = length.toUser(pixelsPerInch, viewportSize, style.fontSize);
    });
    const auto rule = [](const QString &v) {
        return v.trimmed() == QLatin1String("evenodd") ? Qt::OddEvenFill : Qt::WindingFill;
    };
    with(SvgName::FillRule, [&](const QString &v) { style.fillRule = rule(v); });
    with(SvgName::ClipRule, [&](const QString &v) { style.clipRule = rule(v); });
    with(SvgName::Visibility,
         [&](const QString &v) { style.isVisible = v.trimmed() == QLatin1String("visible"); });
    with(SvgName::StrokeDasharray, [&](const QString &v) {
        QString list = v;
        style.isDashed = hasSeen(
            list.replace(QLatin1Char(','), QLatin1Char(' ')).simplified().split(QLatin1Char(' ')));
    });
    with(SvgName::StrokeLinecap, [&](const QString &v) {
        const QString cap = v.trimmed();
        style.showsDots = cap == QLatin1String("round") || cap == QLatin1String("square");
    });
    for (const SvgName marker :
         {SvgName::MarkerAll, SvgName::MarkerStart, SvgName::MarkerMid, SvgName::MarkerEnd})
        with(marker, [&](const QString &v) { style.hasMarkers = isReference(v); });
    with(SvgName::WhiteSpace,
         [&](const QString &v) { style.keepsSpaces = v.startsWith(QLatin1String("pre")); });
    with(SvgName::TextAnchor, [&](const QString &v) {
        style.anchor = v == QLatin1String("middle") ? TextAnchor::Middle
                       : v == QLatin1String("end")  ? TextAnchor::Right
                                                    : TextAnchor::Left;
    });
    return style;
}

QString svgReference(const QString &text)
{
    QString value = text.trimmed();
    if (value.startsWith(QLatin1String("url("))) {
        value = value.mid(4, value.indexOf(QLatin1Char(')')) - 4).trimmed();
        for (const QChar quote : {QLatin1Char('"'), QLatin1Char('\'')}) {
            if (value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote))
                value = value.mid(1, value.size() - 2);
        }
    }
    return value.startsWith(QLatin1Char('#')) ? value.mid(1) : QString();
}

} // namespace vectorkit
