#include <ZTDrawEngineLib/properties/ZTRoundingParamPropertySetHelper.h>

#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/properties/RecordRows_p.h>
#include <ZTDrawEngineLib/properties/ZTItemPropertyList.h>

namespace {

QString enableName() { return QStringLiteral("isEnableRounding"); }

struct NumberField
{
    QString name;
    double ZTRoundingParam::*field;
};

/** The fields that are numbers, in the order of their rows. */
const QVector<NumberField> &numberFields()
{
    static const QVector<NumberField> fields{
        {QStringLiteral("startAngle"), &ZTRoundingParam::startAngle},
        {QStringLiteral("spanAngle"), &ZTRoundingParam::spanAngle},
        {QStringLiteral("diameter"), &ZTRoundingParam::diameter},
        {QStringLiteral("itemRotate"), &ZTRoundingParam::itemRotate}};
    return fields;
}

/** Stores what a sub-row holds into its field; other names change nothing. */
void store(const QString &name, const QVariant &value, ZTRoundingParam *param)
{
    if (name == enableName())
        param->isEnableRounding = value.toBool();
    for (const NumberField &number : numberFields()) {
        if (name == number.name)
            param->*number.field = value.toDouble();
    }
}

/** The record that rows of a property list stand for; a default one outside a list. */
ZTRoundingParam shownRecord(const QtVariantPropertyManager *manager, const QtProperty *parent)
{
    const auto *list = qobject_cast<ZTItemPropertyList *>(manager->parent());
    if (!list || !list->getObject() || !parent)
        return {};
    const QByteArray name = parent->propertyName().toUtf8();
    return list->getObject()->property(name.constData()).value<ZTRoundingParam>();
}

} // namespace

ZTRoundingParamPropertySetHelper::ZTRoundingParamPropertySetHelper(
    QtVariantPropertyManager *rowManager)
    : ZTAbstractPropertySetHelper(rowManager)
{
}

ZTRoundingParamPropertySetHelper::~ZTRoundingParamPropertySetHelper() = default;

void ZTRoundingParamPropertySetHelper::addProperty(const QObject *object,
                                                   const QMetaProperty &property,
                                                   QtVariantProperty *parent)
{
    const auto param = property.read(object).value<ZTRoundingParam>();
    recordrows::addRow(manager, QMetaType::Bool, enableName(), param.isEnableRounding, parent);
    for (const NumberField &number : numberFields()) {
        recordrows::addRow(manager, QMetaType::Double, number.name, param.*number.field, parent);
    }
}

QVariant ZTRoundingParamPropertySetHelper::valueChanged(const QObject *object,
                                                        const QMetaProperty &property,
                                                        const QString &name, const QVariant &value)
{
    const auto before = recordrows::heldBy<ZTRoundingParam>(object, property);
    ZTRoundingParam edited = before;
    store(name, value, &edited);
    return recordrows::changed(before, edited);
}

void ZTRoundingParamPropertySetHelper::setValue(QtVariantProperty *parent, const QVariant &value)
{
    const auto param = value.value<ZTRoundingParam>();
    recordrows::forEach(parent, [&param](QtVariantProperty *row, const QString &name) {
        if (name == enableName())
            recordrows::refresh(row, param.isEnableRounding);
        for (const NumberField &number : numberFields()) {
            if (name == number.name)
                recordrows::refresh(row, param.*number.field);
        }
    });
}

QVariant ZTRoundingParamPropertySetHelper::getValue(QtVariantProperty *parent)
{
    ZTRoundingParam param;
    param.roundingFlag = shownRecord(manager, parent).roundingFlag;
    recordrows::forEach(parent, [&param](const QtVariantProperty *row, const QString &name) {
        store(name, row->value(), &param);
    });
    return QVariant::fromValue(param);
}
