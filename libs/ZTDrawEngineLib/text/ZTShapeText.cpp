#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>

#include <QtCore/QDataStream>
#include <QtGui/QFontMetrics>

// What a text is made of, and its stream form. The layout stands beside.

ZTShapeText::ZTShapeText()
{
    setShapeType(ShapeType::Text);
    // Kept: pixels in a field that is read as millimetres. New texts have this line span, and
    // drawings that were laid out with it would change.
    setLineSpan(ZTCoord::getInstance()->mm2pix(1.0));
}

ZTShapeText::ZTShapeText(const ZTShapeText &) = default;
ZTShapeText &ZTShapeText::operator=(const ZTShapeText &) = default;
ZTShapeText::~ZTShapeText() = default;

void ZTShapeText::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    setRoundingParam(m_roundingParam);
}

// Kept: the base has painted already when this paints once more; derived shapes see both.
void ZTShapeText::setTransformParam(const QTransform &transform)
{
    ZTTextShapeBase::setTransformParam(transform);
    rebuild();
}

QTransform &ZTShapeText::getTransformParam() { return ZTTextShapeBase::getTransformParam(); }

void ZTShapeText::setFillParam(const ZTFillParam &param)
{
    ZTTextShapeBase::setFillParam(param);
    rebuild();
}

bool ZTShapeText::load(QDataStream &stream)
{
    ZTTextShapeBase::load(stream);
    stream >> m_fontParam >> m_roundingParam;
    setFont(m_fontParam);
    return true;
}

void ZTShapeText::save(QDataStream &stream) const
{
    ZTTextShapeBase::save(stream);
    stream << m_fontParam << m_roundingParam;
}

void ZTShapeText::setLineSpan(double spanMm)
{
    m_fontParam.rowSpac = spanMm;
    rebuild();
}

double ZTShapeText::getLineSpan() { return m_fontParam.rowSpac; }

void ZTShapeText::setWordSpan(double spanMm)
{
    m_fontParam.wordSpac = spanMm;
    rebuild();
}

double ZTShapeText::getWordSpan() { return m_fontParam.wordSpac; }

void ZTShapeText::setFontType(FontType type)
{
    if (type == m_fontParam.fontType)
        return;
    m_fontParam.fontType = type;
    setUpActiveFont();
}

void ZTShapeText::setFont(const ZTFontParam &param)
{
    m_fontParam = param;
    setUpActiveFont();
}

void ZTShapeText::setFont(const QFont &font)
{
    m_fontParam.font = font;
    QRectF rectMm = QFontMetrics(m_fontParam.font).boundingRect(m_text);
    rectMm.moveTo(0.0, 0.0);
    setRect(rectMm);
    rebuild();
}

void ZTShapeText::setFont(const ZTShxFontParam &param)
{
    m_fontParam.shxFont = param;
    rebuild();
}

ZTFontParam ZTShapeText::getFont() const { return m_fontParam; }

// Kept: with an active font this rebuilds twice, with the same result; derived shapes see both.
void ZTShapeText::setRoundingParam(const ZTRoundingParam &param)
{
    m_roundingParam = param;
    setUpActiveFont();
    rebuild();
}

ZTRoundingParam ZTShapeText::getRoundingParam() const { return m_roundingParam; }

void ZTShapeText::rebuild()
{
    setUpdate(1);
    paint();
}

void ZTShapeText::setUpActiveFont()
{
    if (m_fontParam.fontType == FontType::doubleLine)
        setFont(m_fontParam.font);
    else if (m_fontParam.fontType == FontType::singleLine)
        setFont(m_fontParam.shxFont);
}
