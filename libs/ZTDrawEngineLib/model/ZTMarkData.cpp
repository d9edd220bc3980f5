#include <ZTDrawEngineLib/model/ZTMarkData.h>

ZTMarkObject::ZTMarkObject() = default;
ZTMarkObject::ZTMarkObject(const ZTMarkObject &other) = default;
ZTMarkObject::ZTMarkObject(ZTMarkObject &&other) noexcept = default;
ZTMarkObject &ZTMarkObject::operator=(const ZTMarkObject &other) = default;
ZTMarkObject &ZTMarkObject::operator=(ZTMarkObject &&other) noexcept = default;
ZTMarkObject::~ZTMarkObject() = default;

ZTMarkGraph::ZTMarkGraph() = default;
ZTMarkGraph::ZTMarkGraph(const ZTMarkGraph &other) = default;
ZTMarkGraph::ZTMarkGraph(ZTMarkGraph &&other) noexcept = default;
ZTMarkGraph &ZTMarkGraph::operator=(const ZTMarkGraph &other) = default;
ZTMarkGraph &ZTMarkGraph::operator=(ZTMarkGraph &&other) noexcept = default;
ZTMarkGraph::~ZTMarkGraph() = default;
