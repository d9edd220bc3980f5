#pragma once

#include <hostkit/items/ShapeHatch.h>

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVector>

class ZTAbstractGraphicsItem;

namespace hostkit {

/**
 * Bytes under keys, which are short words: in capitals those of the file format, in small letters
 * those of features, with a dot ("maker.word") those of other hosts. What a program does not know
 * it keeps and hands on.
 */
using KeyedFields = QMap<QByteArray, QByteArray>;

/**
 * All that a host adds to an item beside what the library's shape holds. A value: change a copy,
 * then give it back through `setItemExtras`, in the studio through its `ExtrasCommand`.
 *
 * The item carries it; `copyItemExtras` takes it along with a copy; a drawing file saves it.
 *
 * A later feature adds a member here and its field in `extrasToFields`, or uses `fields` under a
 * key of its own where only one program cares.
 */
struct ItemExtras
{
    QString name;              ///< given by people; empty: the item goes by its kind
    bool isMarked = true;      ///< false: shown, and left out of everything that is marked
    bool isLocked = false;     ///< true: can be neither selected nor moved
    bool isHidden = false;     ///< true: not shown, not selected, and left out of what is marked
    QVector<qint32> groupPath; ///< ids of the groups around the item, outermost first

    /**
     * Values of its variant text that each part uses up: as many as there are shapes that share a
     * counter or a list, each with a value of its own. Range: 1 to `kMostValuesPerPart`.
     */
    qint32 valuesPerPart = 1;

    /**
     * All hatches, where there is more to say than the fill parameters can: see `hatchesOf`, which
     * joins both. Empty: the fill parameters alone.
     */
    QVector<ShapeHatch> hatches;
    OutlineUnion outlineUnion = OutlineUnion::OfTexts;

    KeyedFields fields; ///< of other features and other programs, by key
};

/** Limit: shapes that share a counter. */
constexpr qint32 kMostValuesPerPart = 1000000;

bool operator==(const ItemExtras &a, const ItemExtras &b);
bool operator!=(const ItemExtras &a, const ItemExtras &b);

/** What an item carries; the defaults for one that was given nothing. */
ItemExtras itemExtras(const ZTAbstractGraphicsItem &item);

/**
 * Gives an item its extras and lets them hold at once: a hidden item disappears from the canvas, a
 * locked or hidden one leaves the selection and cannot be selected until it is free again; other
 * hatches mark the shape, so that the next paint draws them.
 */
void setItemExtras(ZTAbstractGraphicsItem &item, const ItemExtras &extras);

/** After `target.copy(&source)`, which copies the shape alone. */
void copyItemExtras(const ZTAbstractGraphicsItem &source, ZTAbstractGraphicsItem &target);

/**
 * Whether an item takes part in mark data, pictures, plans and exports. Neither an item that is
 * switched off does, nor a hidden one: what is not seen is not marked.
 */
bool isMarked(const ZTAbstractGraphicsItem &item);

/** The extras' own members and `fields` together, as a file holds them; defaults are left out. */
KeyedFields extrasToFields(const ItemExtras &extras);

/** The extras behind fields. A field that makes no sense stays among `fields` as it is. */
ItemExtras extrasFromFields(const KeyedFields &fields);

/**
 * Name of the factory that makes items like this one: a name of the host's own, or else that of
 * the item's `ShapeType`.
 */
QByteArray itemKind(const ZTAbstractGraphicsItem &item);

/** Tells that an item is of a host's own kind, whose factory is registered under `name`. */
void setItemKind(ZTAbstractGraphicsItem &item, const QByteArray &name);

} // namespace hostkit

Q_DECLARE_METATYPE(hostkit::ItemExtras)
