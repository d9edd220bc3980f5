#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QLineF>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

#include <memory>
#include <vector>

namespace zthatch {

/** What a hatch is laid out from, as it was when the hatch was asked for. */
struct HatchOrder
{
    QPainterPath outline; ///< scene pixels
    FillType type = FillType::None;
    double spac = 0.0; ///< scene pixels
    double angleDeg = 0.0;
};

/**
 * The hatch of a shape, laid out when somebody looks at it.
 *
 * A shape is painted several times while it is made, loaded or dragged, and most shapes of a large
 * drawing are out of sight; of all those hatches only the ones that are looked at cost anything.
 * Nobody can tell from outside: the order holds all that the lines depend on, and one that may be
 * refused with a warning is laid out at once.
 *
 * An order that is, to the last bit, the one before keeps its lines: mark data have every shape
 * painted anew, and most have not changed since they were last looked at.
 *
 * Copies share their lines. Several threads may look at one hatch, or at copies of it.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT LateHatch
{
public:
    LateHatch() = default;

    /** Replaces the hatch by these lines. */
    void set(const QVector<QLineF> &lines);

    /** Replaces the hatch by what `order` asks for. False where it is that already. */
    bool set(const HatchOrder &order);

    /** What an order was given with, null for lines that were given. Owner: this hatch. */
    [[nodiscard]] const QPainterPath *outline() const;

    /** Owner: this hatch; the reference is good until the next `set`. */
    [[nodiscard]] const QVector<QLineF> &lines() const;

    /** Whether nobody has looked yet, so that the next look takes its time. */
    [[nodiscard]] bool isWaiting() const;

    /** How many hatches of this process nobody has looked at yet; copies count once. */
    [[nodiscard]] static int waitingCount();

private:
    class Layout;

    QVector<QLineF> m_lines;          ///< where there is no layout
    std::shared_ptr<Layout> m_layout; ///< null for lines that were given
};

/**
 * Looks at hatches side by side, in as many threads as there are processors, for about `budgetMs`
 * milliseconds, one hatch a thread at least. Returns when no thread looks any more; what is left
 * waits as before, and so do all if they are very few.
 */
ZTDRAWENGINELIB_PRIVATE_EXPORT void lookTogether(const std::vector<LateHatch> &hatches,
                                                 int budgetMs);

} // namespace zthatch
