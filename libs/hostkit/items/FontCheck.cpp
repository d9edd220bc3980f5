#include <hostkit/items/FontCheck.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/text/FontPresence.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::FontCheck)
};

/** The names that a text gives its fonts, by the kind that it is shown in. */
QStringList fontsOf(const ZTFontParam &font)
{
    switch (font.fontType) {
    case FontType::doubleLine:
        return {font.font.family()};
    case FontType::singleLine:
        return {font.shxFont.enName, font.shxFont.zhName};
    default:
        return {};
    }
}

} // namespace

QStringList FontCheck::missingFor(const ZTShapeText &text)
{
    const ZTFontParam font = text.getFont();
    QStringList lacking;
    for (const QString &name : fontsOf(font)) {
        if (font.fontType == FontType::doubleLine)
            lookForFamily(name);
        else
            lookForStrokeFont(name);
        if (m_missing.count(name) > 0)
            lacking << name;
    }
    return lacking;
}

QString FontCheck::reasonFor(const ZTAbstractGraphicsItem &item)
{
    const ZTShapeText *text = textOf(item);
    const QStringList lacking = text != nullptr ? missingFor(*text) : QStringList();
    return lacking.isEmpty()
               ? QString()
               : Texts::tr("its font is not here: %1").arg(lacking.join(QStringLiteral(", ")));
}

QStringList FontCheck::missing() const
{
    QStringList names;
    for (const QString &name : m_missing)
        names << name;
    return names;
}

void FontCheck::lookForFamily(const QString &family)
{
    if (m_known.insert(family).second && !hasSystemFont(family))
        m_missing.insert(family);
}

void FontCheck::lookForStrokeFont(const QString &fileName)
{
    if (m_known.insert(fileName).second && !fileName.isEmpty() && !hasStrokeFont(fileName))
        m_missing.insert(fileName);
}

} // namespace hostkit
