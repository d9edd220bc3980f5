#include <hostkit/items/ItemExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QtEndian>

#include <tuple>

namespace hostkit {

namespace {

// Keys of QGraphicsItem::data, far from the small numbers that hosts like to use.
constexpr int kExtrasKey = 0x5a540001;
constexpr int kKindKey = 0x5a540002;

const QByteArray kName = QByteArrayLiteral("name");
const QByteArray kMarked = QByteArrayLiteral("mark");
const QByteArray kLocked = QByteArrayLiteral("lock");
const QByteArray kHidden = QByteArrayLiteral("hide");
const QByteArray kGroups = QByteArrayLiteral("grps");
const QByteArray kValues = QByteArrayLiteral("vals");
const QByteArray kHatches = QByteArrayLiteral("htch");
const QByteArray kUnion = QByteArrayLiteral("unio");
constexpr int kIdSize = 4;

auto membersOf(const ItemExtras &e)
{
    return std::tie(e.name, e.isMarked, e.isLocked, e.isHidden, e.groupPath, e.valuesPerPart,
                    e.hatches, e.outlineUnion, e.fields);
}

QByteArray flagBytes(bool value) { return {1, value ? '\1' : '\0'}; }

bool takeFlag(const QByteArray &bytes, bool *value)
{
    if (bytes.size() != 1 || (bytes[0] != '\0' && bytes[0] != '\1'))
        return false;
    *value = bytes[0] == '\1';
    return true;
}

bool takeName(const QByteArray &bytes, QString *name)
{
    *name = QString::fromUtf8(bytes);
    return name->toUtf8() == bytes;
}

QByteArray idBytes(const QVector<qint32> &ids)
{
    QByteArray bytes(ids.size() * kIdSize, '\0');
    for (int i = 0; i < ids.size(); ++i)
        qToBigEndian(ids[i], bytes.data() + qint64(i) * kIdSize);
    return bytes;
}

bool takeIds(const QByteArray &bytes, QVector<qint32> *ids)
{
    if (bytes.size() % kIdSize != 0)
        return false;
    for (int at = 0; at < bytes.size(); at += kIdSize)
        *ids << qFromBigEndian<qint32>(bytes.constData() + at);
    return true;
}

bool takeValues(const QByteArray &bytes, qint32 *values)
{
    QVector<qint32> read;
    if (bytes.size() != kIdSize || !takeIds(bytes, &read))
        return false;
    *values = read.first();
    return *values >= 1 && *values <= kMostValuesPerPart;
}

bool takeUnion(const QByteArray &bytes, OutlineUnion *value)
{
    if (bytes.size() != 1 || bytes[0] < '\0' || bytes[0] > char(OutlineUnion::Always))
        return false;
    *value = static_cast<OutlineUnion>(bytes[0]);
    return true;
}

/** Whether the shape behind an item is drawn another way. */
bool isDrawnAnew(const ItemExtras &before, const ItemExtras &after)
{
    return before.hatches != after.hatches || before.outlineUnion != after.outlineUnion;
}

bool takeField(const QByteArray &key, const QByteArray &bytes, ItemExtras *extras)
{
    if (key == kName)
        return takeName(bytes, &extras->name);
    if (key == kMarked)
        return takeFlag(bytes, &extras->isMarked);
    if (key == kLocked)
        return takeFlag(bytes, &extras->isLocked);
    if (key == kHidden)
        return takeFlag(bytes, &extras->isHidden);
    if (key == kGroups)
        return takeIds(bytes, &extras->groupPath);
    if (key == kValues)
        return takeValues(bytes, &extras->valuesPerPart);
    if (key == kHatches)
        return takeHatches(bytes, &extras->hatches);
    if (key == kUnion)
        return takeUnion(bytes, &extras->outlineUnion);
    return false;
}

} // namespace

bool operator==(const ItemExtras &a, const ItemExtras &b) { return membersOf(a) == membersOf(b); }

bool operator!=(const ItemExtras &a, const ItemExtras &b) { return !(a == b); }

ItemExtras itemExtras(const ZTAbstractGraphicsItem &item)
{
    const QVariant kept = item.data(kExtrasKey);
    // Most shapes have none, and are asked often: nothing is slow to convert.
    return kept.isValid() ? kept.value<ItemExtras>() : ItemExtras();
}

void setItemExtras(ZTAbstractGraphicsItem &item, const ItemExtras &extras)
{
    ZTShapeBase *shape = item.getShapeBase();
    const ItemExtras before = itemExtras(item);
    if (shape != nullptr && isDrawnAnew(before, extras)) {
        shape->setUpdate(1);
        item.update();
    }
    item.setData(kExtrasKey, extras == ItemExtras() ? QVariant() : QVariant::fromValue(extras));
    // Uniting moves an outline by its rounding: who stands around the shape has to know at once.
    if (shape != nullptr && before.outlineUnion != extras.outlineUnion)
        item.setTransformParam(QTransform(item.getTransformParam()));
    const bool isFree = !extras.isLocked && !extras.isHidden;
    if (!isFree)
        item.setSelected(false);
    item.setFlag(QGraphicsItem::ItemIsSelectable, isFree);
    item.setVisible(!extras.isHidden);
}

void copyItemExtras(const ZTAbstractGraphicsItem &source, ZTAbstractGraphicsItem &target)
{
    setItemExtras(target, itemExtras(source));
    target.setData(kKindKey, source.data(kKindKey));
}

bool isMarked(const ZTAbstractGraphicsItem &item)
{
    const ItemExtras extras = itemExtras(item);
    return extras.isMarked && !extras.isHidden;
}

KeyedFields extrasToFields(const ItemExtras &extras)
{
    const ItemExtras usual;
    KeyedFields fields = extras.fields;
    if (extras.name != usual.name)
        fields[kName] = extras.name.toUtf8();
    if (extras.isMarked != usual.isMarked)
        fields[kMarked] = flagBytes(extras.isMarked);
    if (extras.isLocked != usual.isLocked)
        fields[kLocked] = flagBytes(extras.isLocked);
    if (extras.isHidden != usual.isHidden)
        fields[kHidden] = flagBytes(extras.isHidden);
    if (extras.groupPath != usual.groupPath)
        fields[kGroups] = idBytes(extras.groupPath);
    if (extras.valuesPerPart != usual.valuesPerPart)
        fields[kValues] = idBytes({extras.valuesPerPart});
    if (extras.hatches != usual.hatches)
        fields[kHatches] = hatchBytes(extras.hatches);
    if (extras.outlineUnion != usual.outlineUnion)
        fields[kUnion] = QByteArray(1, char(extras.outlineUnion));
    return fields;
}

ItemExtras extrasFromFields(const KeyedFields &fields)
{
    ItemExtras extras;
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        ItemExtras taken = extras;
        if (takeField(field.key(), field.value(), &taken))
            extras = taken;
        else
            extras.fields.insert(field.key(), field.value());
    }
    return extras;
}

QByteArray itemKind(const ZTAbstractGraphicsItem &item)
{
    const QByteArray own = item.data(kKindKey).toByteArray();
    return own.isEmpty() ? QByteArray(ShapeType2String(item.getShapeType())) : own;
}

void setItemKind(ZTAbstractGraphicsItem &item, const QByteArray &name)
{
    item.setData(kKindKey, name);
}

} // namespace hostkit
