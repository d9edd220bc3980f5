#include <ZTDrawEngineLib/common/MovableText_p.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>
#include <ZTDrawEngineLib/common/MovedOutline_p.h>
#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <algorithm>

namespace {

/**
 * Whether the text is laid out in one go. Where another run follows, of another script or of small
 * capitals, each is cut off to a step for itself.
 */
bool isOneRun(const QFont &font, const QString &text)
{
    return font.capitalization() == QFont::MixedCase &&
           std::all_of(text.begin(), text.end(), [](QChar letter) {
               return letter.unicode() < 128 && letter.isLetterOrNumber();
           });
}

} // namespace

ztoutline::MovableText::MovableText(const QFont &font, const QString &text)
    : m_font(font), m_text(text), m_atOrigin(laidOutAt({}))
{
    // Between two steps, and on either side of the origin.
    m_moves = isOneRun(font, text) && isMovable(m_atOrigin) && movesTo({10.3, -77.7}) &&
              movesTo({-431.9, 44.45});
}

void ztoutline::MovableText::addTo(QPainterPath &path, const QPointF &position) const
{
    path.addPath(m_moves && isNear(position) ? movedTo(position) : laidOutAt(position));
}

QPainterPath ztoutline::MovableText::laidOutAt(const QPointF &position) const
{
    QPainterPath path;
    addText(path, position, m_font, m_text);
    return path;
}

bool ztoutline::MovableText::movesTo(const QPointF &position) const
{
    return isExactly(movedTo(position), laidOutAt(position));
}

QPainterPath ztoutline::MovableText::movedTo(const QPointF &position) const
{
    QPainterPath path;
    path.setFillRule(m_atOrigin.fillRule());
    path.reserve(m_atOrigin.elementCount());
    addMoved(path, m_atOrigin, onStep(position));
    return path;
}
