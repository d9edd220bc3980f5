#include <codekit/shape/CodeShape.h>

#include <codekit/shape/HumanTextPath.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>

namespace codekit {

namespace {

constexpr double kNewModuleMm = 0.5;
constexpr double kNewHatchMm = 0.05;

/** Points of a round outline: its polygon is off by less than 3 micrometres. */
constexpr double kFlatPerMm = 200.0;

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

QString unreadableSettings() { return tr("its settings are damaged or of a later version"); }

/** Straight outlines of areas, fine enough whatever the screen's millimetre is. */
QPainterPath flattened(const QPainterPath &areas)
{
    const QTransform back = QTransform::fromScale(1.0 / kFlatPerMm, 1.0 / kFlatPerMm);
    QPainterPath flat;
    flat.setFillRule(areas.fillRule());
    for (const QPolygonF &polygon :
         areas.toSubpathPolygons(QTransform::fromScale(kFlatPerMm, kFlatPerMm)))
        flat.addPolygon(back.map(polygon));
    return flat;
}

QPainterPath withStraightEdges(const QPainterPath &areas)
{
    QPainterPath flat;
    for (const QPolygonF &polygon : areas.toSubpathPolygons())
        flat.addPolygon(polygon);
    return flat;
}

QPainterPath strokesOf(const CodeMarks &marks)
{
    QPainterPath strokes;
    for (const QLineF &line : marks.lines)
        strokes.addPolygon(QPolygonF(QVector<QPointF>{line.p1(), line.p2()}));
    for (const QPointF &point : marks.points)
        strokes.addPolygon(QPolygonF(QVector<QPointF>{point, point}));
    return strokes;
}

} // namespace

ShapeType shapeTypeOf(CodeKind kind)
{
    return infoOf(kind).isLinear ? ShapeType::BarCode : ShapeType::QRCode;
}

CodeShape::CodeShape(CodeKind kind)
{
    m_settings.spec.kind = kind;
    m_settings.form.moduleMm = kNewModuleMm;
    setFixedText(QStringLiteral("SN-0001"));
    m_text = getFixedText();
    setShapeType(shapeTypeOf(kind));
    setLockAspectRatio(true);
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = kNewHatchMm;
    ZTTextShapeBase::setFillParam(fill); // marks the shape: the first paint() makes the code
}

void CodeShape::setCode(const CodeSettings &settings, const QString &content)
{
    m_settings = settings;
    m_text = content;
    m_unknownRecord.reset();
    m_isUpToDate = false;
    setShapeType(shapeTypeOf(settings.spec.kind));
    setUpdate(1);
    paint();
}

void CodeShape::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_isUpToDate = false;
    setUpdate(1);
    paint();
}

void CodeShape::setFillParam(const ZTFillParam &param)
{
    ZTTextShapeBase::setFillParam(param);
    paint();
}

void CodeShape::paint()
{
    if (!isUpdate())
        return;
    bringUpToDate();
    if (m_drawn.symbol.columns > 0)
        setRect(QRectF(QPointF(), codeSizeMm(m_drawn.symbol, m_drawn.form)));
    setUpdate(0);
    drawLines();
}

bool CodeShape::draw(const CodeSettings &settings, const QString &content, Drawn *drawn,
                     QString *reason)
{
    Drawn made;
    made.form = settings.form;
    CodeSpec spec = settings.spec;
    spec.content = content;
    if (!encodeCode(spec, &made.symbol, reason))
        return false;
    if (settings.isSizedByWidth)
        made.form.moduleMm = moduleForWidth(made.symbol, settings.widthMm);
    CodeMarks marks;
    if (!markCode(made.symbol, made.form, &marks, reason))
        return false;
    const bool isRound = made.form.style == CodeStyle::Dots;
    made.fieldMm = marks.fieldMm;
    made.areas = isRound ? flattened(marks.areas) : withStraightEdges(marks.areas);
    made.strokes = strokesOf(marks);
    if (settings.human.place != HumanPlace::None) {
        HumanTextPath letters;
        if (!layOutCodeText(settings.human, made.symbol, made.form, marks, &letters, reason))
            return false;
        made.areas.addPath(letters.outlines);
        made.strokes.addPath(letters.strokes);
    }
    *drawn = made;
    return true;
}

// What was said when it arose may have been said in another language.
QString CodeShape::notReadyReason() const
{
    if (m_problem.isEmpty())
        return {};
    if (m_unknownRecord)
        return unreadableSettings();
    Drawn ignored;
    QString reason;
    return draw(m_settings, text(), &ignored, &reason) ? m_problem : reason;
}

/** A copy or a loaded shape knows what was shown and draws it anew. */
void CodeShape::bringUpToDate()
{
    if (m_isUpToDate)
        return;
    m_isUpToDate = true;
    m_problem.clear();
    if (m_unknownRecord) {
        m_problem = unreadableSettings();
        m_drawn = Drawn();
        return;
    }
    if (draw(m_settings, text(), &m_drawn, &m_problem)) {
        m_shownSettings = m_settings;
        m_shownContent = text();
        m_problem.clear();
        return;
    }
    QString ignored;
    if (m_drawn.symbol.columns == 0 && !m_shownContent.isEmpty())
        draw(m_shownSettings, m_shownContent, &m_drawn, &ignored);
}

/** Areas first, because hatching looks at the outlines that there are; then the single lines. */
void CodeShape::drawLines()
{
    getPath() = m_drawn.areas;
    path2Lines(false); // row by row, as the code is made
    fill();
    if (m_drawn.strokes.isEmpty())
        return;
    QPainterPath linesPx = getLines();
    getPath() = m_drawn.strokes;
    path2Lines(false);
    const QPainterPath strokesPx = getLines();
    linesPx.addPath(strokesPx);
    setLines(linesPx);
    getPath().addPath(m_drawn.areas);
    keepBorderOfStrokes(strokesPx);
}

/** Without outlines a hatched code still has the lines that are no outline of anything. */
void CodeShape::keepBorderOfStrokes(const QPainterPath &strokesPx)
{
    const ZTFillParam fill = getFillParam();
    if (fill.isEnableBorder || fill.fillType == FillType::None)
        return;
    QVector<QLineF> lines = getFillLines();
    for (const QPolygonF &stroke : strokesPx.toSubpathPolygons()) {
        for (int at = 1; at < stroke.size(); ++at)
            lines.append(QLineF(stroke[at - 1], stroke[at]));
    }
    setFillLines(lines);
}

QByteArray CodeShape::record() const
{
    if (m_unknownRecord)
        return *m_unknownRecord;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << codeSettingsToBytes(m_settings);
    const bool isStale = m_isUpToDate && !m_problem.isEmpty() && !m_shownContent.isEmpty();
    out << isStale;
    if (isStale)
        out << codeSettingsToBytes(m_shownSettings) << m_shownContent;
    return bytes;
}

bool CodeShape::takeRecord(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_5_15);
    QByteArray settings;
    bool isStale = false;
    in >> settings >> isStale;
    CodeSettings taken;
    CodeSettings shown;
    QString shownContent;
    if (in.status() != QDataStream::Ok || !codeSettingsFromBytes(settings, &taken))
        return false;
    if (isStale) {
        QByteArray shownSettings;
        in >> shownSettings >> shownContent;
        if (!codeSettingsFromBytes(shownSettings, &shown))
            return false;
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return false;
    m_settings = taken;
    m_shownSettings = shown;
    m_shownContent = shownContent;
    return true;
}

bool CodeShape::load(QDataStream &stream)
{
    ZTTextShapeBase::load(stream);
    QByteArray bytes;
    stream >> bytes;
    m_drawn = Drawn();
    m_shownContent.clear();
    m_isUpToDate = false;
    m_unknownRecord.reset();
    if (!takeRecord(bytes))
        m_unknownRecord = bytes;
    return true;
}

void CodeShape::save(QDataStream &stream) const
{
    ZTTextShapeBase::save(stream);
    stream << record();
}

} // namespace codekit
