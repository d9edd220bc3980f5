#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>

#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>

ZTTextShapeBase::ZTTextShapeBase() : m_varTxt(std::make_shared<ZTVariantText>()) {}

ZTTextShapeBase::ZTTextShapeBase(const ZTTextShapeBase &other)
    : ZTShapeBase(other), m_text(other.m_text), m_enableVariantText(other.m_enableVariantText),
      m_fixedText(other.m_fixedText)
{
    if (m_enableVariantText)
        m_varTxt = std::make_shared<ZTVariantText>(*other.variantText());
}

// Kept: assignment shares the variant text as it shares the record. The count deletes it once.
ZTTextShapeBase &ZTTextShapeBase::operator=(const ZTTextShapeBase &other)
{
    if (this == &other)
        return *this;
    ZTShapeBase::operator=(other);
    m_text = other.m_text;
    m_variantTextId = other.m_variantTextId;
    m_varTxt = other.variantText();
    m_enableVariantText = other.m_enableVariantText;
    m_fixedText = other.m_fixedText;
    return *this;
}

ZTTextShapeBase::~ZTTextShapeBase() { ZTVariantTextManager::forget(this); }

QString ZTTextShapeBase::text() const { return m_text; }

void ZTTextShapeBase::setText(const QString &) {}

bool ZTTextShapeBase::load(QDataStream &stream)
{
    m_varTxt = std::make_shared<ZTVariantText>();
    ZTShapeBase::load(stream);
    bool enable = false;
    stream >> enable >> m_text >> m_fixedText >> m_variantTextId >> *m_varTxt;
    setEnableVariantText(enable);
    return true;
}

void ZTTextShapeBase::save(QDataStream &stream) const
{
    ZTShapeBase::save(stream);
    stream << m_enableVariantText << m_text << m_fixedText << m_variantTextId << *variantText();
}

ZTVariantText *ZTTextShapeBase::getVarTxt() const
{
    return m_enableVariantText ? variantText().get() : nullptr;
}

void ZTTextShapeBase::cloneVariantText(ZTVariantText *source)
{
    if (source != nullptr && source != m_varTxt.get())
        m_varTxt = std::make_shared<ZTVariantText>(*source);
}

bool ZTTextShapeBase::isEnableVariantText() const { return m_enableVariantText; }

void ZTTextShapeBase::setEnableVariantText(bool enable) { m_enableVariantText = enable; }

const QString &ZTTextShapeBase::getFixedText() const { return m_fixedText; }

void ZTTextShapeBase::setFixedText(const QString &text) { m_fixedText = text; }

void ZTTextShapeBase::fromVariantTextUpdateText()
{
    if (!m_enableVariantText)
        return;
    // Held here as well: a concrete setText may replace the shape's variant text.
    const std::shared_ptr<ZTVariantText> source = variantText();
    source->update();
    setText(source->getText());
}

const std::shared_ptr<ZTVariantText> &ZTTextShapeBase::variantText() const
{
    if (!m_varTxt)
        m_varTxt = std::make_shared<ZTVariantText>();
    return m_varTxt;
}
