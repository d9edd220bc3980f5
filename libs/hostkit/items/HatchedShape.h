#pragma once

#include <hostkit/items/HatchDrawer.h>
#include <hostkit/items/HatchMemory.h>
#include <hostkit/items/ItemExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <optional>
#include <type_traits>

namespace hostkit {

/**
 * A shape, `Base`, that draws all hatches of its item through the process's `hatchDrawer`: screen,
 * mark data, pictures and jobs get the same lines. A text unites outlines that overlap, unless its
 * item says otherwise. Without a drawer it is a `Base` in everything.
 *
 * `owner` is the item that owns the shape; its extras are read at every rebuild.
 */
template <class Base>
class HatchedShape final : public Base, public LayeredHatch
{
public:
    /** A shape like `other`, a `Base` or what makes one. */
    template <class Other>
    HatchedShape(const ZTAbstractGraphicsItem &owner, const Other &other)
        : Base(other), m_owner(owner)
    {
    }
    HatchedShape(const HatchedShape &) = delete;
    HatchedShape &operator=(const HatchedShape &) = delete;

    /** Unites the outline where it is to be, and draws the hatches over it. */
    void fill() override
    {
        const HatchDrawer &drawer = hatchDrawer();
        const ItemExtras extras = itemExtras(m_owner);
        if (drawer.unite != nullptr && isUnited(extras.outlineUnion))
            this->setLines(m_memory.united(drawer, this->getLines()));
        m_layers.clear();
        if (drawer.draw == nullptr || extras.hatches.isEmpty()) {
            Base::fill();
            return;
        }
        const auto hatches = hatchesOf(this->getFillParam(), extras);
        if (hatches.isEmpty())
            return;
        const HatchMemory::Order order{drawer, this->getLines(), this->getFillParam(), hatches,
                                       ZTCoord::getInstance()->mm2pix(1.0)};
        if (!m_memory.isOf(order))
            m_memory.keep(order, drawn(order));
        this->setFillLines(m_memory.drawing().linesPx);
        m_layers = m_memory.drawing().layers;
    }

    /**
     * Empty where the fill parameters alone hatch the shape, or nothing does. Lines that `Base`
     * adds after its hatches are marked as its outline would be: once, in the shape's own pen.
     */
    QVector<HatchLayer> hatchLayers() const override
    {
        const int lines = this->getFillLines().size();
        // A text that changes to a stroke font loses its lines without a `fill()`.
        if (lines == 0 || m_layers.isEmpty())
            return {};
        QVector<HatchLayer> layers = m_layers;
        HatchLayer rest;
        rest.firstLine = layers.last().firstLine + layers.last().lines;
        rest.lines = lines - rest.firstLine;
        rest.pen = 0;
        if (rest.lines > 0)
            layers.append(rest);
        for (HatchLayer &layer : layers) {
            if (layer.pen == 0)
                layer.pen = this->getPenId();
        }
        return layers;
    }

private:
    HatchDrawing drawn(const HatchMemory::Order &order)
    {
        std::optional<QVector<QLineF>> first;
        if (isPlain(order.hatches.first())) {
            Base::fill();
            first = this->getFillLines();
        }
        return order.drawer.draw(order.outlinePx, order.hatches, first);
    }

    static bool isUnited(OutlineUnion wanted)
    {
        if (wanted == OutlineUnion::OfTexts)
            return std::is_base_of<ZTShapeText, Base>::value;
        return wanted == OutlineUnion::Always;
    }

    const ZTAbstractGraphicsItem &m_owner; ///< borrowed: it owns this
    QVector<HatchLayer> m_layers;
    HatchMemory m_memory;
};

} // namespace hostkit
