#include <ZTDrawEngineLib/properties/ZTFontPropertySetHelper.h>

#include <ZTDrawEngineLib/common/ZTFontParam.h>
#include <ZTDrawEngineLib/properties/RecordRows_p.h>

namespace {

QString typeName() { return QStringLiteral("type"); }
QString wordSpacName() { return QStringLiteral("wordSpac"); }
QString rowSpacName() { return QStringLiteral("rowSpac"); }
QString fontName() { return QStringLiteral("font"); }
QString shxFontName() { return QStringLiteral("shxFont"); }

/** Stores what a sub-row holds into its field; other names change nothing. */
void store(const QString &name, const QVariant &value, ZTFontParam *param)
{
    if (name == typeName())
        param->fontType = static_cast<FontType>(value.toInt());
    else if (name == wordSpacName())
        param->wordSpac = value.toDouble();
    else if (name == rowSpacName())
        param->rowSpac = value.toDouble();
    else if (name == fontName())
        param->font = value.value<QFont>();
    else if (name == shxFontName())
        param->shxFont = value.value<ZTShxFontParam>();
}

} // namespace

ZTFontPropertySetHelper::ZTFontPropertySetHelper(QtVariantPropertyManager *rowManager)
    : ZTAbstractPropertySetHelper(rowManager)
{
}

ZTFontPropertySetHelper::~ZTFontPropertySetHelper() = default;

void ZTFontPropertySetHelper::addProperty(const QObject *object, const QMetaProperty &property,
                                          QtVariantProperty *parent)
{
    const auto param = property.read(object).value<ZTFontParam>();
    // Kept: the enumerators' own names, in every language.
    const QStringList types{QStringLiteral("singleLine"), QStringLiteral("doubleLine"),
                            QStringLiteral("None")};
    recordrows::addChoice(manager, typeName(), types, static_cast<int>(param.fontType), parent);
    recordrows::addRow(manager, QMetaType::Double, wordSpacName(), param.wordSpac, parent);
    recordrows::addRow(manager, QMetaType::Double, rowSpacName(), param.rowSpac, parent);
    recordrows::addRow(manager, QMetaType::QFont, fontName(), param.font, parent);
    recordrows::addRow(manager, qMetaTypeId<ZTShxFontParam>(), shxFontName(),
                       QVariant::fromValue(param.shxFont), parent);
}

QVariant ZTFontPropertySetHelper::valueChanged(const QObject *object, const QMetaProperty &property,
                                               const QString &name, const QVariant &value)
{
    const auto before = recordrows::heldBy<ZTFontParam>(object, property);
    ZTFontParam edited = before;
    store(name, value, &edited);
    return recordrows::changed(before, edited);
}

void ZTFontPropertySetHelper::setValue(QtVariantProperty *parent, const QVariant &value)
{
    const auto param = value.value<ZTFontParam>();
    recordrows::forEach(parent, [&param](QtVariantProperty *row, const QString &name) {
        if (name == typeName())
            recordrows::refresh(row, static_cast<int>(param.fontType));
        else if (name == wordSpacName())
            recordrows::refresh(row, param.wordSpac);
        else if (name == rowSpacName())
            recordrows::refresh(row, param.rowSpac);
        else if (name == fontName())
            recordrows::refresh(row, param.font);
        else if (name == shxFontName())
            recordrows::refresh(row, QVariant::fromValue(param.shxFont));
    });
}

QVariant ZTFontPropertySetHelper::getValue(QtVariantProperty *parent)
{
    ZTFontParam param;
    recordrows::forEach(parent, [&param](const QtVariantProperty *row, const QString &name) {
        store(name, row->value(), &param);
    });
    return QVariant::fromValue(param);
}
