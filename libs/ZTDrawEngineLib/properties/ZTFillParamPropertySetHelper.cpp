#include <ZTDrawEngineLib/properties/ZTFillParamPropertySetHelper.h>

#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/properties/RecordRows_p.h>

namespace {

// Kept: this very number is the spacing that nobody has chosen yet, and means millimetres.
constexpr double kUnsetSpacMm = 2.0;

QString fillTypeName() { return QStringLiteral("fillType"); }
QString spacName() { return QStringLiteral("spac"); }
QString angleName() { return QStringLiteral("angle"); }
QString borderName() { return QStringLiteral("isEnableBorder"); }

double mmOf(double spacPx) { return ZTCoord::getInstance()->pix2mm(spacPx); }
double pxOf(double spacMm) { return ZTCoord::getInstance()->mm2pix(spacMm); }

/** Stores what a sub-row holds into its field; other names change nothing. */
void store(const QString &name, const QVariant &value, ZTFillParam *param)
{
    if (name == fillTypeName())
        param->fillType = static_cast<FillType>(value.toInt());
    else if (name == spacName())
        param->spac = pxOf(value.toDouble());
    else if (name == angleName())
        param->angle = value.toDouble();
    else if (name == borderName())
        param->isEnableBorder = value.toBool();
}

} // namespace

ZTFillParamPropertySetHelper::ZTFillParamPropertySetHelper(QtVariantPropertyManager *rowManager)
    : ZTAbstractPropertySetHelper(rowManager)
{
}

ZTFillParamPropertySetHelper::~ZTFillParamPropertySetHelper() = default;

void ZTFillParamPropertySetHelper::addProperty(const QObject *object, const QMetaProperty &property,
                                               QtVariantProperty *parent)
{
    const auto param = property.read(object).value<ZTFillParam>();
    const QStringList styles{QObject::tr("Line"), QObject::tr("ULine"), QObject::tr("None")};
    recordrows::addChoice(manager, fillTypeName(), styles, static_cast<int>(param.fillType),
                          parent);
    if (auto *spac = recordrows::addRow(manager, QMetaType::Double, spacName(), parent)) {
        spac->setAttribute(QStringLiteral("singleStep"), 0.1);
        spac->setAttribute(QStringLiteral("minimum"), 0.01);
        spac->setValue(param.spac == kUnsetSpacMm ? kUnsetSpacMm : mmOf(param.spac));
    }
    recordrows::addRow(manager, QMetaType::Double, angleName(), param.angle, parent);
    recordrows::addRow(manager, QMetaType::Bool, borderName(), param.isEnableBorder, parent);
}

QVariant ZTFillParamPropertySetHelper::valueChanged(const QObject *object,
                                                    const QMetaProperty &property,
                                                    const QString &name, const QVariant &value)
{
    const auto before = recordrows::heldBy<ZTFillParam>(object, property);
    ZTFillParam edited = before;
    store(name, value, &edited);
    if (name == fillTypeName() && edited.spac == kUnsetSpacMm)
        edited.spac = pxOf(kUnsetSpacMm);
    return recordrows::changed(before, edited);
}

void ZTFillParamPropertySetHelper::setValue(QtVariantProperty *parent, const QVariant &value)
{
    const auto param = value.value<ZTFillParam>();
    recordrows::forEach(parent, [&param](QtVariantProperty *row, const QString &name) {
        if (name == fillTypeName())
            recordrows::refresh(row, static_cast<int>(param.fillType));
        else if (name == spacName())
            recordrows::refresh(row, mmOf(param.spac));
        else if (name == angleName())
            recordrows::refresh(row, param.angle);
        else if (name == borderName())
            recordrows::refresh(row, param.isEnableBorder);
    });
}

QVariant ZTFillParamPropertySetHelper::getValue(QtVariantProperty *parent)
{
    ZTFillParam param;
    recordrows::forEach(parent, [&param](const QtVariantProperty *row, const QString &name) {
        store(name, row->value(), &param);
    });
    return QVariant::fromValue(param);
}
