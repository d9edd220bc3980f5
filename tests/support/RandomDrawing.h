#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTGraphicsTextItem;
struct ZTMarkGraph;

namespace testsupport {

/**
 * Fills documents with shapes of all kinds whose every setting is drawn by lot, equal for equal
 * seeds. Needs the item factories.
 */
class RandomDrawing
{
public:
    explicit RandomDrawing(quint32 seed) : random(seed) {}

    /** Stroke fonts to choose from, regular and big one in turn; none: texts are of outlines. */
    QStringList strokeFonts;

    /** The kinds to choose from. */
    QVector<ShapeType> kinds{ShapeType::Rect,    ShapeType::Line,    ShapeType::Ellipse,
                             ShapeType::TDOT,    ShapeType::Polygon, ShapeType::Text,
                             ShapeType::VecGraph};

    /** Whether some shapes are repeated in a matrix; selecting each is slow among very many. */
    bool withMatrices = true;

    void add(ZTGraphicsDocument &document, int items);

private:
    void addOne(ZTGraphicsDocument &document);
    void setShape(ZTAbstractGraphicsItem &item);
    void setText(ZTGraphicsTextItem &item);
    void setVariantText(ZTGraphicsTextItem &item);
    QPainterPath drawing();
    QTransform transform();
    ZTFillParam fill();
    QString text();
    bool oneIn(int chances) { return random.bounded(chances) == 0; }
    double real(double from, double to) { return from + random.generateDouble() * (to - from); }

    QRandomGenerator random;
};

/** Whether two graphs are equal to the last bit; prints the first difference. */
bool sameGraph(const ZTMarkGraph &actual, const ZTMarkGraph &expected);

} // namespace testsupport
