#include <QtPropertyBrowser/QtVariantPropertyManager_p.h>

#include <QtPropertyBrowser/QtVariantProperty.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <utility>

using rowtypes::AttributeSpec;
using rowtypes::FieldSpec;

namespace {

/** `value` as exactly the type that a row holds; invalid if it does not convert. */
QVariant convertedTo(int type, const QVariant &value)
{
    QVariant converted = value;
    if (value.userType() != type) {
        if (!value.canConvert(type))
            return {};
        // A text that is no number leaves the type's own zero behind, which is the value meant.
        converted.convert(type);
    }
    return QVariant(type, converted.constData());
}

QVariantMap initialAttributes(const rowtypes::RowType &type)
{
    QVariantMap attributes;
    const QVector<AttributeSpec> specs = type.attributes();
    for (const AttributeSpec &spec : specs)
        attributes.insert(spec.name, spec.initial);
    return attributes;
}

bool tellsValue(const VariantSignals &told, quint64 id)
{
    return std::any_of(told.cbegin(), told.cend(), [id](const VariantSignal &signal) {
        return signal.kind == VariantSignal::Value && signal.id == id;
    });
}

} // namespace

VariantRow *QtVariantPropertyManagerPrivate::row(const QtProperty *property) const
{
    const auto found = m_rows.find(property);
    return found == m_rows.end() ? nullptr : found->second.get();
}

bool QtVariantPropertyManagerPrivate::isAlive(const QtProperty *property, quint64 id) const
{
    const VariantRow *found = row(property);
    return found && found->id == id;
}

QtVariantProperty *QtVariantPropertyManagerPrivate::addRow(int propertyType, const QString &name)
{
    m_pendingType = propertyType;
    QtProperty *made = m_q->QtAbstractPropertyManager::addProperty(name);
    m_pendingType = 0;
    auto *property = dynamic_cast<QtVariantProperty *>(made);
    if (!property)
        delete made;
    return property;
}

void QtVariantPropertyManagerPrivate::initialize(QtProperty *property)
{
    auto made = std::make_unique<VariantRow>();
    VariantRow *const row = made.get();
    row->property = property;
    row->id = ++m_lastId;
    row->propertyType = std::exchange(m_pendingType, 0);
    row->type = rowtypes::rowType(row->propertyType);
    m_rows[property] = std::move(made);
    if (!row->type)
        return;
    row->value = row->type->initialValue();
    row->attributes = initialAttributes(*row->type);
    row->value = row->type->bounded(row->value, row->attributes);
    makeFields(row);
}

void QtVariantPropertyManagerPrivate::uninitialize(QtProperty *property)
{
    VariantRow *const leaving = row(property);
    if (!leaving)
        return;
    if (leaving->owner)
        leaving->owner->fields[leaving->field] = nullptr;
    // By index, because a row that goes clears its entry here.
    for (int i = 0; i < leaving->fields.size(); ++i) { // NOLINT(modernize-loop-convert)
        if (VariantRow *part = leaving->fields.at(i))
            delete part->property;
    }
    m_rows.erase(property);
}

void QtVariantPropertyManagerPrivate::setValue(VariantRow *row, const QVariant &value)
{
    if (!row || !row->type || row->type->valueType() == QMetaType::UnknownType)
        return;
    const QVariant converted = convertedTo(row->type->valueType(), value);
    if (!converted.isValid() || !row->type->accepts(converted, row->attributes))
        return;
    const QVariant entered = fitted(row, converted);
    if (row->type->same(row->value, entered))
        return;
    VariantSignals told;
    changeValue(row, entered, nullptr, &told);
    announce(told);
}

void QtVariantPropertyManagerPrivate::setAttribute(VariantRow *row, const QString &name,
                                                   const QVariant &value)
{
    if (!row || !row->type)
        return;
    const QVector<AttributeSpec> specs = row->type->attributes();
    const auto spec =
        std::find_if(specs.cbegin(), specs.cend(),
                     [&name](const AttributeSpec &each) { return each.name == name; });
    if (spec == specs.cend())
        return;
    const QVariant converted = row->type->convertedAttribute(*spec, value);
    if (!converted.isValid())
        return;
    QVariantMap attributes = row->attributes;
    row->type->setAttribute(&attributes, name, converted);
    if (attributes == row->attributes)
        return;

    VariantSignals told;
    storeAttributes(row, attributes, &told);
    const QVariant fresh = row->type->valueAfter(name, attributes);
    if (fresh.isValid()) {
        const QtProperty *const property = row->property;
        const quint64 id = row->id;
        remakeFields(row);
        if (!isAlive(property, id))
            return;
    } else {
        refreshFields(row, &told);
    }
    const bool isFresh = fresh.isValid();
    changeValue(row, isFresh ? fresh : row->value, isFresh ? row : nullptr, &told);
    announce(told);
}

void QtVariantPropertyManagerPrivate::makeFields(VariantRow *row)
{
    const QVector<FieldSpec> specs = row->type->fields(row->value, row->attributes);
    row->fields.fill(nullptr, specs.size());
    for (int i = 0; i < specs.size(); ++i) {
        QtVariantProperty *property = addRow(specs.at(i).propertyType, specs.at(i).name);
        VariantRow *const part = this->row(property);
        if (!part)
            continue;
        for (auto it = specs.at(i).attributes.cbegin(); it != specs.at(i).attributes.cend(); ++it)
            part->attributes.insert(it.key(), it.value());
        part->value = row->type->fieldValue(row->value, i);
        part->owner = row;
        part->field = i;
        row->fields[i] = part;
        row->property->addSubProperty(property);
    }
}

void QtVariantPropertyManagerPrivate::remakeFields(VariantRow *row)
{
    const QtProperty *const property = row->property;
    const quint64 id = row->id;
    for (int i = 0; isAlive(property, id) && i < row->fields.size(); ++i) {
        if (VariantRow *part = row->fields.at(i))
            delete part->property;
    }
    if (isAlive(property, id))
        makeFields(row);
}

/** Gives the parts' rows the attributes that follow from the whole. */
void QtVariantPropertyManagerPrivate::refreshFields(VariantRow *row, VariantSignals *told)
{
    if (row->fields.isEmpty())
        return;
    const QVector<FieldSpec> specs = row->type->fields(row->value, row->attributes);
    for (int i = 0; i < qMin(specs.size(), row->fields.size()); ++i) {
        VariantRow *const part = row->fields.at(i);
        if (!part)
            continue;
        QVariantMap attributes = part->attributes;
        for (auto it = specs.at(i).attributes.cbegin(); it != specs.at(i).attributes.cend(); ++it)
            attributes.insert(it.key(), it.value());
        storeAttributes(part, attributes, told);
    }
}

void QtVariantPropertyManagerPrivate::storeAttributes(VariantRow *row,
                                                      const QVariantMap &attributes,
                                                      VariantSignals *told)
{
    const QVariantMap before = std::exchange(row->attributes, attributes);
    if (before == attributes)
        return;
    for (auto it = attributes.cbegin(); it != attributes.cend(); ++it) {
        if (before.value(it.key()) != it.value())
            told->append({VariantSignal::Attribute, row->property, row->id, it.key(), it.value()});
    }
    told->append({VariantSignal::Shown, row->property, row->id, {}, {}});
}

/** The value within the bounds of the row and of the rows of its parts. */
QVariant QtVariantPropertyManagerPrivate::fitted(const VariantRow *row, QVariant value) const
{
    value = row->type->bounded(value, row->attributes);
    for (int i = 0; i < row->fields.size(); ++i) {
        const VariantRow *const part = row->fields.at(i);
        if (!part)
            continue;
        const QVariant held = row->type->fieldValue(value, i);
        const QVariant inBounds = fitted(part, held);
        if (!part->type->same(held, inBounds))
            value = row->type->withField(value, i, inBounds);
    }
    return value;
}

/** Carries an edit up to the outermost whole, and from there down into every part. */
void QtVariantPropertyManagerPrivate::changeValue(VariantRow *row, const QVariant &value,
                                                  const VariantRow *forced, VariantSignals *told)
{
    QVariant whole = fitted(row, value);
    while (VariantRow *const owner = row->owner) {
        whole = owner->type->withField(owner->value, row->field, whole);
        if (!owner->type->accepts(whole, owner->attributes))
            return;
        whole = fitted(owner, whole);
        row = owner;
    }
    store(row, whole, forced, told);
}

void QtVariantPropertyManagerPrivate::store(VariantRow *row, const QVariant &value,
                                            const VariantRow *forced, VariantSignals *told)
{
    const bool changed = row == forced || !row->type->same(row->value, value);
    row->value = value;
    if (changed && row->type->fieldsFollowValue())
        refreshFields(row, told);
    for (int i = 0; i < row->fields.size(); ++i) {
        if (VariantRow *part = row->fields.at(i))
            store(part, row->type->fieldValue(value, i), forced, told);
    }
    if (changed)
        told->append({VariantSignal::Value, row->property, row->id, {}, value});
}

void QtVariantPropertyManagerPrivate::announce(const VariantSignals &told)
{
    const QPointer<QtVariantPropertyManager> guard(m_q);
    for (const VariantSignal &signal : told) {
        announceOne(signal, told);
        if (!guard)
            return;
    }
}

/** A slot may have deleted or edited the row meanwhile; the later edit has then told itself. */
void QtVariantPropertyManagerPrivate::announceOne(const VariantSignal &signal,
                                                  const VariantSignals &all)
{
    if (!isAlive(signal.property, signal.id))
        return;
    switch (signal.kind) {
    case VariantSignal::Attribute:
        Q_EMIT m_q->attributeChanged(signal.property, signal.attribute, signal.value);
        return;
    case VariantSignal::Shown:
        if (!tellsValue(all, signal.id))
            Q_EMIT m_q->propertyChanged(signal.property);
        return;
    case VariantSignal::Value:
        break;
    }
    const VariantRow *const told = row(signal.property);
    if (!told->type->same(told->value, signal.value))
        return;
    const QPointer<QtVariantPropertyManager> guard(m_q);
    Q_EMIT m_q->propertyChanged(signal.property);
    if (guard && isAlive(signal.property, signal.id))
        Q_EMIT m_q->valueChanged(signal.property, signal.value);
}
