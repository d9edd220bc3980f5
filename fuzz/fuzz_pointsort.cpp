// Any mark graph: the order of its objects is that of the plain greedy chain.
//
// The first byte is the kind. Then, per object: a byte of polygon count and traits, and per polygon
// one place, either two small whole numbers or two doubles of any bits.

#include <support/oracle/PlainChain.h>

#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <cstdlib>
#include <cstring>

namespace {

/** Takes values from the front of the input; zeros when it is used up. */
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size) : at(data), end(data + size) {}

    bool isEmpty() const { return at == end; }
    std::uint8_t byte() { return at == end ? std::uint8_t(0) : *at++; }

    double anyDouble()
    {
        double value = 0;
        if (end - at >= std::ptrdiff_t(sizeof value)) {
            std::memcpy(&value, at, sizeof value);
            at += sizeof value;
        } else {
            at = end;
        }
        return value;
    }

private:
    const std::uint8_t *at;
    const std::uint8_t *end;
};

QPolygonF polygonFrom(Input &input, bool anyBits)
{
    QPolygonF polygon;
    if (anyBits) {
        const double x = input.anyDouble();
        polygon << QPointF(x, input.anyDouble());
    } else {
        const double x = input.byte();
        polygon << QPointF(x, input.byte());
    }
    return polygon;
}

ZTMarkObject objectFrom(Input &input, int penId)
{
    const std::uint8_t traits = input.byte();
    ZTMarkObject object;
    object.penId = penId;
    for (int i = 0; i < (traits & 3); ++i) {
        const bool isEmpty = (traits & 0x30) == 0x30 && i == ((traits >> 2) & 3);
        object.lines << (isEmpty ? QPolygonF() : polygonFrom(input, (traits & 0x40) != 0));
    }
    return object;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr int kFirstPen = 2; // a default object has pen 1
    Input input(data, size);
    const auto kind = static_cast<EShapeSortType>(input.byte() % 6);
    ZTMarkGraph graph;
    while (!input.isEmpty())
        graph.objects << objectFrom(input, kFirstPen + graph.objects.size());

    ZTMarkGraph plain = graph;
    testsupport::plainMarkGraphSort(plain, kind);
    ZTPointSort::getInstance()->setShapeMarkSort(kind);
    ZTPointSort::getInstance()->markGraphSort(graph);
    for (int i = 0; i < plain.objects.size(); ++i) {
        if (graph.objects.at(i).penId != plain.objects.at(i).penId)
            std::abort();
    }
    return graph.objects.size() == plain.objects.size() ? 0 : (std::abort(), 1);
}
