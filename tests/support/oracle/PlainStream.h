#pragma once

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QPair>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QFont>
#include <QtGui/QTransform>

#include <memory>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

namespace testsupport {

/** Base block of a shape. */
struct PlainBase
{
    QRectF rect;
    QTransform transform;
    QTransform roundingTransform;
    qint32 fillType = 2;
    double spac = 2.0;
    double angle = 0.0;
    bool isEnableBorder = true;
    qint32 shapeType = 0;
    qint32 update = 0;
    qint32 id = 0;
    bool lockAspectRatio = false;
    qint32 penId = 1;
};

/** What a text has behind its base block. */
struct PlainText
{
    bool enableVariantText = false;
    QString text;
    QString fixedText;
    qint32 variantTextId = -1;
    ZTVariantText variantText;
    qint32 fontType = 1;
    double wordSpac = 0.0;
    double rowSpac = 0.0;
    QFont font;
    QString zhName;
    QString enName;
    double height = 100.0;
    bool isEnableRounding = false;
    double startAngle = 0.0;
    double spanAngle = 90.0;
    double diameter = 200.0;
    double itemRotate = 0.0;
    qint32 roundingFlag = 0;
};

struct PlainItem
{
    quint8 kind = 0; ///< decides which of the fields below are on the stream
    QPointF posPx;
    PlainBase base;
    qint32 sideCount = 0;
    QString imagePath;
    std::shared_ptr<PlainText> text; ///< of a text only
};

/**
 * A drawing as its stream has it, written and read field by field with the standard operators.
 *
 * What the library writes in larger pieces has to give the same bytes, and what it reads so the
 * same values. Nothing but the variant texts is shared with it.
 */
struct PlainDrawing
{
    qint32 lastVariantTextId = 0;
    QVector<QPair<qint32, ZTVariantText>> variantTexts;
    qint32 nextShapeId = 0;
    QVector<PlainItem> items;
};

void writePlainly(QDataStream &stream, const PlainDrawing &drawing);
PlainDrawing readPlainly(QDataStream &stream);

/** `count` rectangles on a grid, with every field different from its default in some of them. */
PlainDrawing rectanglesDrawing(int count);

/** `count` items of all seven kinds in turn, hatched, turned, with texts of both kinds. */
PlainDrawing mixedDrawing(int count);

/** `count` items of any kinds with any settings that a user could give them. */
PlainDrawing randomDrawing(quint32 seed, int count);

} // namespace testsupport
