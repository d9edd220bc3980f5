#include "TextProbe.h"

#include "Geometry.h"

#include <QtCore/QDebug>
#include <QtTest/QTest>

#include <cmath>

namespace testsupport {

void TextProbe::setRect(const QRectF &rectMm)
{
    events << QStringLiteral("rect");
    ZTShapeText::setRect(rectMm);
}

void TextProbe::paint()
{
    events << (isUpdate() ? QStringLiteral("paint") : QStringLiteral("idle"));
    ZTShapeText::paint();
}

void TextProbe::fill()
{
    events << (isUpdate() ? QStringLiteral("marked fill") : QStringLiteral("fill"));
    ZTShapeText::fill();
}

QString TextProbe::takeEvents()
{
    const QString taken = events.join(QLatin1Char(' '));
    events.clear();
    return taken;
}

TextProbe strokeText(const QString &text)
{
    TextProbe shape;
    shape.setFont(tinyFont());
    shape.setFontType(FontType::singleLine);
    shape.setText(text);
    return shape;
}

QPolygonF squareStroke(double left, double bottom, double side)
{
    return polygon({{left, bottom},
                    {left, bottom - side},
                    {left + side, bottom - side},
                    {left + side, bottom},
                    {left, bottom}});
}

QFont hundredPixelFont(double letterSpacingPx)
{
    QFont font;
    font.setPixelSize(100);
    font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacingPx);
    return font;
}

ZTFillParam lineHatch()
{
    ZTFillParam param;
    param.fillType = FillType::Line;
    param.spac = 1.0;
    return param;
}

bool hasPolygons(const QPainterPath &path, const QVector<QPolygonF> &expected, double tolerance)
{
    const QList<QPolygonF> actual = polygonsOf(path);
    if (actual.size() != expected.size()) {
        qInfo() << "actual" << actual.size() << "polygons, expected" << expected.size();
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        if (!near(actual[i], expected[i], tolerance))
            return false;
    }
    return true;
}

bool isFinite(const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        if (!std::isfinite(path.elementAt(i).x) || !std::isfinite(path.elementAt(i).y))
            return false;
    }
    return true;
}

void setPixelsPerMm(double ratio)
{
    ZTCoord::getInstance()->setHeight(ZTCoord::getInstance()->getPhysicalHeight() * ratio);
}

void addFontTypes()
{
    QTest::addColumn<FontType>("type");
    QTest::newRow("stroke font") << FontType::singleLine;
    QTest::newRow("system font") << FontType::doubleLine;
    QTest::newRow("none") << FontType::None;
}

} // namespace testsupport
