#include <ZTDrawEngineLib/shx/ZTRegBigFontShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>
#include <ZTDrawEngineLib/shx/ZTShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxText_p.h>

#include <cmath>

namespace {

constexpr int kFirstTextHeight = 50;
constexpr char kRegularReference[] = "W";
constexpr char kBigReference[] = "\xC4\xE3"; // the second-person pronoun in GBK

} // namespace

ZTRegBigFontShxParser::ZTRegBigFontShxParser() = default;

ZTRegBigFontShxParser::ZTRegBigFontShxParser(const char *regName, const char *bigName)
{
    init(regName, bigName);
}

ZTRegBigFontShxParser::ZTRegBigFontShxParser(const ZTRegBigFontShxParser &) = default;
ZTRegBigFontShxParser::ZTRegBigFontShxParser(ZTRegBigFontShxParser &&) noexcept = default;
ZTRegBigFontShxParser &ZTRegBigFontShxParser::operator=(const ZTRegBigFontShxParser &) = default;
ZTRegBigFontShxParser &
ZTRegBigFontShxParser::operator=(ZTRegBigFontShxParser &&) noexcept = default;
ZTRegBigFontShxParser::~ZTRegBigFontShxParser() = default;

void ZTRegBigFontShxParser::init(const char *regName, const char *bigName)
{
    if (regName == nullptr || *regName == '\0' || bigName == nullptr || *bigName == '\0')
        return;
    m_regFont = ZTShxFontManager::getFont(regName, kFirstTextHeight);
    m_bigFont = ZTShxFontManager::getFont(bigName, kFirstTextHeight);
}

void ZTRegBigFontShxParser::cleanup() const
{
    if (m_regFont != nullptr)
        m_regFont->cleanup();
    if (m_bigFont != nullptr)
        m_bigFont->cleanup();
}

void ZTRegBigFontShxParser::setTextHeight(double height)
{
    if (m_regFont == nullptr || m_bigFont == nullptr)
        return;
    m_regFont->setTextHeight(height);
    m_regFont->setTextHeight(height / getTextExtent(kRegularReference) * height);
    m_bigFont->setTextHeight(height);
    m_bigFont->setTextHeight(height / getTextExtent(kBigReference) * height);
}

double ZTRegBigFontShxParser::getTextHeight()
{
    return m_regFont != nullptr ? m_regFont->m_textHeight : 0.0;
}

double ZTRegBigFontShxParser::getDescendHeight()
{
    if (m_regFont == nullptr || m_regFont->m_above == 0)
        return 0.0;
    return m_regFont->m_below * m_regFont->m_textHeight / m_regFont->m_above;
}

double ZTRegBigFontShxParser::drawText(ZTAbstractGlyphCallback *cb, const char *text, double x,
                                       double y, double wordSpan)
{
    if (m_regFont == nullptr || m_bigFont == nullptr)
        return 0.0;
    m_bigFont->beginDrawing(x, y);
    m_regFont->beginText(cb, x, y);
    const bool hasBigFont = m_bigFont->m_type != SHX_TYPE::SHX_NONE;
    const auto *next = reinterpret_cast<const unsigned char *>(text != nullptr ? text : "");
    while (*next != 0) {
        if (hasBigFont && m_bigFont->isEscapeChar(*next))
            drawBig(cb, m_bigFont->takeBigfontCode(next));
        else
            drawRegular(cb, *next++);
        if (cb != nullptr) {
            cb->next();
            m_regFont->m_x += wordSpan;
            m_bigFont->m_x = m_regFont->m_x; // the pens agree, also when both fonts are one
        }
    }
    if (cb != nullptr)
        cb->glEnd();
    return m_regFont->m_x - x;
}

double ZTRegBigFontShxParser::drawText(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x,
                                       double y, double wordSpan)
{
    return drawText(cb, ztshx::toBytes(text).c_str(), x, y, wordSpan);
}

double ZTRegBigFontShxParser::getTextExtent(const char *text)
{
    return drawText(nullptr, text, 0.0, 0.0, 0.0);
}

double ZTRegBigFontShxParser::getTextExtent(const wchar_t *text)
{
    return drawText(nullptr, text, 0.0, 0.0, 0.0);
}

void ZTRegBigFontShxParser::drawRegular(ZTAbstractGlyphCallback *cb, int code)
{
    m_regFont->drawCharacter(cb, code);
    m_bigFont->continueFrom(*m_regFont);
}

void ZTRegBigFontShxParser::drawBig(ZTAbstractGlyphCallback *cb, int code)
{
    m_bigFont->drawCharacter(cb, code);
    m_regFont->continueFrom(*m_bigFont);
}
