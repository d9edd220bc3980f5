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

ZTGraphicsTextItem::ZTGraphicsTextItem() : textShape(new ZTShapeText)
{
    shape = textShape;
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
    textShape = nullptr; // the base deletes the shape
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
    if (replacement == nullptr || replacement == textShape)
        return;
    replaceShape(replacement);
    textShape = replacement;
}

QString ZTGraphicsTextItem::text() const { return textShape->text(); }

void ZTGraphicsTextItem::setText(const QString &text)
{
    if (text == textShape->text())
        return;
    changeShape([&] { textShape->setText(text); });
}

double ZTGraphicsTextItem::getLineSpan() const
{
    return ZTCoord::getInstance()->pix2mm(textShape->getLineSpan());
}

void ZTGraphicsTextItem::setLineSpan(double spanMm)
{
    changeShape([&] { textShape->setLineSpan(ZTCoord::getInstance()->mm2pix(spanMm)); });
}

FontType ZTGraphicsTextItem::fontType() const { return textShape->getFont().fontType; }

void ZTGraphicsTextItem::setFontType(FontType type)
{
    if (type == fontType())
        return;
    changeShape([&] { textShape->setFontType(type); });
}

ZTShxFontParam ZTGraphicsTextItem::shxFont() const { return textShape->getFont().shxFont; }

void ZTGraphicsTextItem::setShxFont(const ZTShxFontParam &param)
{
    changeShape([&] { textShape->setFont(param); });
}

QFont ZTGraphicsTextItem::font() const { return textShape->getFont().font; }

void ZTGraphicsTextItem::setFont(const QFont &font)
{
    changeShape([&] { textShape->setFont(font); });
}

ZTRoundingParam ZTGraphicsTextItem::getRoundingParam() const
{
    return textShape->getRoundingParam();
}

void ZTGraphicsTextItem::setRoundingParam(const ZTRoundingParam &param)
{
    changeShape([&] { textShape->setRoundingParam(param); });
}

ZTFontParam ZTGraphicsTextItem::getFontParam() const { return textShape->getFont(); }

void ZTGraphicsTextItem::setFontParam(const ZTFontParam &param)
{
    changeShape([&] { textShape->setFont(param); });
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
