#include <ZTDrawEngineLib/items/ZTGraphicsTextItem.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <QtCore/QDebug>
#include <QtWidgets/QApplication>

namespace {

constexpr int kNewFontPx = 100;
constexpr double kNewScale = 0.1;

QFont newTextFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(kNewFontPx);
    return font;
}

/** Takes the first fonts that are listed. False, with a message, where a list is empty. */
bool chooseFirstFonts(ZTShxFontParam &param)
{
    const std::vector<std::string> &regFonts = ZTShxFontManager::regFonts();
    if (regFonts.empty()) {
        qDebug() << "ShxFont regFonts empty";
        return false;
    }
    const std::string enName = regFonts.front();
    const std::vector<std::string> &bigFonts = ZTShxFontManager::bigFonts();
    if (bigFonts.empty()) {
        qDebug() << "ShxFont bigFonts empty";
        return false;
    }
    const std::string zhName = bigFonts.front();
    param.enName = QString::fromLocal8Bit(enName.c_str());
    param.zhName = QString::fromLocal8Bit(zhName.c_str());
    param.parser.init(enName.c_str(), zhName.c_str());
    param.parser.setTextHeight(param.height);
    return true;
}

} // namespace

ZTGraphicsTextItem::ZTGraphicsTextItem() : m_textShape(new ZTShapeText)
{
    shape = m_textShape;
    setFont(newTextFont());
    ZTGraphicsTextItem::setTransformParam(getTransformParam() *
                                          QTransform::fromScale(kNewScale, kNewScale));
    ZTShxFontParam strokeFont;
    if (!chooseFirstFonts(strokeFont))
        return;
    setShxFont(strokeFont);
    setFontType(FontType::doubleLine);
    setFixedText(tr("TEXT"));
}

ZTGraphicsTextItem::~ZTGraphicsTextItem()
{
    m_textShape = nullptr; // the base deletes the shape
}

void ZTGraphicsTextItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTShapeText>(source)) {
        replaceTextShape(copied);
        rebuildShape();
    }
}

void ZTGraphicsTextItem::replaceTextShape(ZTShapeText *replacement)
{
    if (replacement == nullptr || replacement == m_textShape)
        return;
    replaceShape(replacement);
    m_textShape = replacement;
}

QString ZTGraphicsTextItem::text() const { return m_textShape->text(); }

void ZTGraphicsTextItem::setText(const QString &text)
{
    if (text == m_textShape->text())
        return;
    changeShape([&] { m_textShape->setText(text); });
}

double ZTGraphicsTextItem::getLineSpan() const
{
    return ZTCoord::getInstance()->pix2mm(m_textShape->getLineSpan());
}

void ZTGraphicsTextItem::setLineSpan(double spanMm)
{
    changeShape([&] { m_textShape->setLineSpan(ZTCoord::getInstance()->mm2pix(spanMm)); });
}

FontType ZTGraphicsTextItem::fontType() const { return m_textShape->getFont().fontType; }

void ZTGraphicsTextItem::setFontType(FontType type)
{
    if (type == fontType())
        return;
    changeShape([&] { m_textShape->setFontType(type); });
}

ZTShxFontParam ZTGraphicsTextItem::shxFont() const { return m_textShape->getFont().shxFont; }

void ZTGraphicsTextItem::setShxFont(const ZTShxFontParam &param)
{
    changeShape([&] { m_textShape->setFont(param); });
}

QFont ZTGraphicsTextItem::font() const { return m_textShape->getFont().font; }

void ZTGraphicsTextItem::setFont(const QFont &font)
{
    changeShape([&] { m_textShape->setFont(font); });
}

ZTRoundingParam ZTGraphicsTextItem::getRoundingParam() const
{
    return m_textShape->getRoundingParam();
}

void ZTGraphicsTextItem::setRoundingParam(const ZTRoundingParam &param)
{
    changeShape([&] { m_textShape->setRoundingParam(param); });
}

ZTFontParam ZTGraphicsTextItem::getFontParam() const { return m_textShape->getFont(); }

void ZTGraphicsTextItem::setFontParam(const ZTFontParam &param)
{
    changeShape([&] { m_textShape->setFont(param); });
}

/** What every setter does around its change, in this order. */
template <class Change>
void ZTGraphicsTextItem::changeShape(Change change)
{
    prepareGeometryChange();
    change();
    updateResizeItem();
    update();
}
