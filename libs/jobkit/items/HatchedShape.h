#pragma once

#include <hostkit/items/ItemExtras.h>
#include <jobkit/hatch/ShapeHatching.h>

#include <type_traits>

namespace jobkit {

/**
 * A shape of the library, `Base`, that draws all hatches of its item: screen, mark data, pictures
 * and jobs get the same lines. A text unites outlines that overlap, unless its item says otherwise.
 *
 * `owner` is the item that owns the shape; its extras are read at every rebuild.
 */
template <class Base>
class HatchedShape final : public Base, public hostkit::LayeredHatch
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
        const hostkit::ItemExtras extras = hostkit::itemExtras(m_owner);
        if (isUnited(extras.outlineUnion))
            this->setLines(unitedOutline(this->getLines()));
        m_layers.clear();
        if (extras.hatches.isEmpty()) {
            Base::fill();
            return;
        }
        const auto hatches = hostkit::hatchesOf(this->getFillParam(), extras);
        if (hatches.isEmpty())
            return;
        std::optional<QVector<QLineF>> first;
        if (hostkit::isPlain(hatches.first())) {
            Base::fill();
            first = this->getFillLines();
        }
        HatchDrawing drawing = drawHatches(this->getLines(), hatches, first);
        this->setFillLines(drawing.linesPx);
        m_layers = std::move(drawing.layers);
    }

    /** Empty where the fill parameters alone hatch the shape, or nothing does. */
    QVector<hostkit::HatchLayer> hatchLayers() const override
    {
        // A text that changes to a stroke font loses its lines without a `fill()`.
        if (this->getFillLines().isEmpty())
            return {};
        QVector<hostkit::HatchLayer> layers = m_layers;
        for (hostkit::HatchLayer &layer : layers) {
            if (layer.pen == 0)
                layer.pen = this->getPenId();
        }
        return layers;
    }

private:
    static bool isUnited(hostkit::OutlineUnion wanted)
    {
        if (wanted == hostkit::OutlineUnion::OfTexts)
            return std::is_base_of<ZTShapeText, Base>::value;
        return wanted == hostkit::OutlineUnion::Always;
    }

    const ZTAbstractGraphicsItem &m_owner; ///< borrowed: it owns this
    QVector<hostkit::HatchLayer> m_layers;
};

} // namespace jobkit
