#pragma once

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QLineF>

namespace hostkit {

// The contents of the sections, as docs/formats/drawing-file.md tells. Reading is false for
// anything but exactly what writing makes.

QByteArray metaToBytes(const DrawingMeta &meta);
bool metaFromBytes(const QByteArray &bytes, DrawingMeta *meta);

QByteArray itemsToBytes(const QByteArray &counters, const QVector<DrawingItem> &items);
bool itemsFromBytes(const QByteArray &bytes, QByteArray *counters, QVector<DrawingItem> *items);

QByteArray drawingsToBytes(const QVector<QPainterPath> &drawings);
bool drawingsFromBytes(const QByteArray &bytes, QVector<QPainterPath> *drawings);

QByteArray fontHeightsToBytes(const QVector<StrokeFontHeight> &heights);
bool fontHeightsFromBytes(const QByteArray &bytes, QVector<StrokeFontHeight> *heights);

/** Group names and fields; the other extras are sections and items of their own. */
/** Eight bytes; back again 0 where they are no tolerance that a drawing can have. */
QByteArray curveToleranceToBytes(double toleranceMm);
double curveToleranceFromBytes(const QByteArray &bytes);

QByteArray drawingExtrasToBytes(const DrawingExtras &extras);
bool drawingExtrasFromBytes(const QByteArray &bytes, DrawingExtras *extras);

QByteArray originToBytes(const DrawingOrigin &origin);
bool originFromBytes(const QByteArray &bytes, DrawingOrigin *origin);

/** The section REST of version 1: what its stream lost of each polygon and imported drawing. */
bool restFromBytes(const QByteArray &bytes, QVector<KeyedFields> *fieldsOfItems,
                   QVector<StrokeFontHeight> *heights);

/** What every shape has, and some kinds leave out of their own record. */
struct ShapeBaseFields
{
    QRectF rectMm;
    QTransform transform;
    QTransform roundingTransform;
    ZTFillParam fill;
    ShapeType shapeType = ShapeType::None; ///< the one that the shape carries itself
    qint32 id = 0;
    bool lockAspectRatio = false;
    qint32 penId = 1;
};

/** A use of an entry in the registry of variant texts: which, and whose turn in a flush. */
struct VariantTextUse
{
    qint32 entryId = 0;
    qint32 turn = 0;
};

/** The fields of an item that belong to the format; all others are its extras. */
namespace itemfield {

extern const QByteArray kBase;     ///< ShapeBaseFields
extern const QByteArray kLine;     ///< the ends of a line, millimetres before its transform
extern const QByteArray kDrawing;  ///< which of the imported drawings, from 0
extern const QByteArray kSize;     ///< size that the item last reported, scene pixels
extern const QByteArray kZValue;   ///< place in the stacking order beside its turn
extern const QByteArray kVariants; ///< uses of the registry of variant texts

} // namespace itemfield

QByteArray baseToBytes(const ShapeBaseFields &base);
bool baseFromBytes(const QByteArray &bytes, ShapeBaseFields *base);
QByteArray lineToBytes(const QLineF &line);
bool lineFromBytes(const QByteArray &bytes, QLineF *line);
QByteArray numberToBytes(qint32 number);
bool numberFromBytes(const QByteArray &bytes, qint32 *number);
QByteArray sizeToBytes(const QSizeF &size);
bool sizeFromBytes(const QByteArray &bytes, QSizeF *size);
QByteArray realToBytes(double value);
bool realFromBytes(const QByteArray &bytes, double *value);
QByteArray usesToBytes(const QVector<VariantTextUse> &uses);
bool usesFromBytes(const QByteArray &bytes, QVector<VariantTextUse> *uses);

/** The fields of an item that are none of the format's. */
KeyedFields extraFieldsOf(const DrawingItem &item);

/** Whether each of the format's fields of an item is what it should be. */
bool hasGoodFields(const DrawingItem &item, int drawings);

/** Whether everything in a drawing is in step, with itself and with each other. */
bool checkDrawing(const DrawingFile &drawing, Failure *failure);

} // namespace hostkit
