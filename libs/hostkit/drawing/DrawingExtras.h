#pragma once

#include <hostkit/items/ItemExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointF>
#include <QtGui/QPainterPath>

namespace hostkit {

/** A section of a drawing file that this version does not know. */
struct DrawingSection
{
    QByteArray tag;   ///< four bytes
    QByteArray bytes; ///< as the file has them, to be written back
};

/** An item as a drawing file holds it. */
struct DrawingItem
{
    QByteArray kind;                  ///< name of the factory that makes it
    ShapeType type = ShapeType::None; ///< the item's own
    QPointF posPx;                    ///< in the scene
    QByteArray shape;                 ///< what the shape's `save` writes
    KeyedFields fields;               ///< what `shape` lacks, and the item's extras, by key
};

/** An item of a kind that this program does not make: kept, and saved again at its place. */
struct ForeignItem
{
    int place = 0;        ///< how many of all the drawing's items lie below it
    DrawingItem item;     ///< without a number of an imported drawing
    QPainterPath drawing; ///< the imported drawing that it names; may be empty
};

/**
 * What a drawing holds beside items and set-up, for hosts and for later features. A value, carried
 * by the document and saved with it.
 */
struct DrawingExtras
{
    QMap<qint32, QString> groupNames;  ///< of the ids in `ItemExtras::groupPath`
    KeyedFields fields;                ///< of features and other programs, by key
    QVector<DrawingSection> sections;  ///< whole sections of other programs, in their order
    QVector<ForeignItem> foreignItems; ///< lowest first
};

/** What a document carries; nothing in a new one. */
DrawingExtras drawingExtras(const ZTGraphicsDocument &document);

/** Replaces all that a document carries. */
void setDrawingExtras(ZTGraphicsDocument &document, const DrawingExtras &extras);

/** Empties a document for another drawing: shapes, undo stack, variant texts and extras. */
void clearDrawing(ZTGraphicsDocument &document);

} // namespace hostkit

Q_DECLARE_METATYPE(hostkit::DrawingExtras)
