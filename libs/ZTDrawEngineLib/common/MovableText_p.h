#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QPainterPath>

namespace ztoutline {

/**
 * The outline of one text in one font, laid out once and put to many places.
 *
 * Every place gets, to the last bit, what `addText` gives there, at a hundredth of its cost. A font
 * whose letters do not move like that is noticed at the start, and laid out each time; so is a text
 * of anything but plain Latin letters and digits.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT MovableText
{
public:
    MovableText(const QFont &font, const QString &text);

    /** Adds the outline with its baseline beginning at `position`. */
    void addTo(QPainterPath &path, const QPointF &position) const;

private:
    [[nodiscard]] QPainterPath movedTo(const QPointF &position) const;
    [[nodiscard]] QPainterPath laidOutAt(const QPointF &position) const;
    [[nodiscard]] bool movesTo(const QPointF &position) const;

    QFont m_font;
    QString m_text;
    QPainterPath m_atOrigin;
    bool m_moves = false;
};

} // namespace ztoutline
