#include <ZTDrawEngineLib/properties/ZTShxFontPropertySetHelper.h>

#include <ZTDrawEngineLib/common/ZTShxFontParam.h>
#include <ZTDrawEngineLib/properties/RecordRows_p.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

namespace {

QString zhNameName() { return QStringLiteral("zhName"); }
QString enNameName() { return QStringLiteral("enName"); }
QString heightName() { return QStringLiteral("height"); }

QString nameOf(const std::string &fileName)
{
    return QString::fromLocal8Bit(fileName.data(), static_cast<int>(fileName.size()));
}

QStringList namesOf(const std::vector<std::string> &fileNames)
{
    QStringList names;
    for (const std::string &fileName : fileNames)
        names.append(nameOf(fileName));
    return names;
}

/** The name at an index, or `otherwise` for an index outside the list. */
QString nameAt(const QVariant &index, const std::vector<std::string> &fileNames,
               const QString &otherwise)
{
    const auto i = static_cast<unsigned int>(index.toInt());
    return i < fileNames.size() ? nameOf(fileNames[i]) : otherwise;
}

/** A record that was read with a height of no use has none. */
bool hasFonts(ZTShxFontParam *param) { return param->parser.getTextHeight() != 0.0; }

/** Loads the pair of fonts that the record names, at its height. */
void load(ZTShxFontParam *param)
{
    param->parser.init(param->enName.toLocal8Bit().constData(),
                       param->zhName.toLocal8Bit().constData());
    param->parser.setTextHeight(param->height);
}

/**
 * Puts a row on the entry with this name, or past the last one if there is none.
 *
 * The entries are searched as the row shows them: asking the font manager would scan the folder of
 * fonts at every refresh for as long as a kind of font is missing, and grow the other kind's list.
 */
void choose(QtVariantProperty *row, const QString &name)
{
    const QStringList names = row->attributeValue(QStringLiteral("enumNames")).toStringList();
    const int found = names.indexOf(name);
    recordrows::refresh(row, static_cast<unsigned int>(found < 0 ? names.size() : found));
}

} // namespace

ZTShxFontPropertySetHelper::ZTShxFontPropertySetHelper(QtVariantPropertyManager *rowManager)
    : ZTAbstractPropertySetHelper(rowManager)
{
}

ZTShxFontPropertySetHelper::~ZTShxFontPropertySetHelper() = default;

void ZTShxFontPropertySetHelper::addProperty(const QObject *object, const QMetaProperty &property,
                                             QtVariantProperty *parent)
{
    const auto param = property.read(object).value<ZTShxFontParam>();
    const QStringList bigFonts = namesOf(ZTShxFontManager::bigFonts());
    const QStringList regFonts = namesOf(ZTShxFontManager::regFonts());
    // Kept: the rows get the names and not the entries' indices; the first refresh mends it.
    recordrows::addChoice(manager, zhNameName(), bigFonts, param.zhName, parent);
    recordrows::addChoice(manager, enNameName(), regFonts, param.enName, parent);
    recordrows::addRow(manager, QMetaType::Double, heightName(), param.height, parent);
}

QVariant ZTShxFontPropertySetHelper::valueChanged(const QObject *object,
                                                  const QMetaProperty &property,
                                                  const QString &name, const QVariant &value)
{
    const auto before = recordrows::heldBy<ZTShxFontParam>(object, property);
    ZTShxFontParam edited = before;
    if (name == zhNameName())
        edited.zhName = nameAt(value, ZTShxFontManager::bigFonts(), before.zhName);
    else if (name == enNameName())
        edited.enName = nameAt(value, ZTShxFontManager::regFonts(), before.enName);
    else if (name == heightName())
        edited.height = value.toDouble();
    if (edited == before)
        return {};
    if (name == heightName() && hasFonts(&edited))
        edited.parser.setTextHeight(edited.height);
    else
        load(&edited);
    return QVariant::fromValue(edited);
}

void ZTShxFontPropertySetHelper::setValue(QtVariantProperty *parent, const QVariant &value)
{
    const auto param = value.value<ZTShxFontParam>();
    recordrows::forEach(parent, [&param](QtVariantProperty *row, const QString &name) {
        if (name == zhNameName())
            choose(row, param.zhName);
        else if (name == enNameName())
            choose(row, param.enName);
        else if (name == heightName())
            recordrows::refresh(row, param.height);
    });
}

QVariant ZTShxFontPropertySetHelper::getValue(QtVariantProperty *parent)
{
    ZTShxFontParam param;
    recordrows::forEach(parent, [&param](const QtVariantProperty *row, const QString &name) {
        if (name == zhNameName())
            param.zhName = nameAt(row->value(), ZTShxFontManager::bigFonts(), QString());
        else if (name == enNameName())
            param.enName = nameAt(row->value(), ZTShxFontManager::regFonts(), QString());
        else if (name == heightName())
            param.height = row->value().toDouble();
    });
    return QVariant::fromValue(param);
}
