#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <ZTDrawEngineLib/common/PackedFields_p.h>
#include <ZTDrawEngineLib/common/StraightRun_p.h>
#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/Reach_p.h>
#include <ZTDrawEngineLib/shapes/StraightOutline_p.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase_p.h>

#include <QtCore/QDataStream>

#include <utility>

namespace {

/** Bytes of the base record where numbers keep their full width. */
constexpr int kRecordSize = 214;

// Qt remembers with a matrix what kind it was made as, and maps points accordingly: one that scales
// by 1 but for rounding maps otherwise than the same numbers read from a file. Here the numbers
// alone count, so that what is loaded marks to the last bit as what was saved.
QTransform fromItsNumbers(const QTransform &matrix)
{
    return {matrix.m11(), matrix.m12(), matrix.m13(), matrix.m21(), matrix.m22(),
            matrix.m23(), matrix.m31(), matrix.m32(), matrix.m33()};
}

/** So many points are mapped in memory that is kept for it. */
constexpr int kShortRun = 64;

bool isShortRun(const QPainterPath &path)
{
    return path.elementCount() <= kShortRun && isStraightRun(path);
}

/** One path of all polygons. Without room for all from the start, each of them moves the others. */
QPainterPath pathOf(const QList<QPolygonF> &polygons)
{
    int pointCount = 0;
    for (const QPolygonF &polygon : polygons)
        pointCount += polygon.size();
    QPainterPath path;
    if (polygons.size() > 1)
        path.reserve(pointCount + 1);
    for (const QPolygonF &polygon : polygons)
        path.addPolygon(polygon);
    return path;
}

} // namespace

ZTShapeBase::ZTShapeBase() : m_d(new ZTShapeBasePrivate) {}

ZTShapeBase::ZTShapeBase(const ZTShapeBase &other) : m_d(new ZTShapeBasePrivate(*other.m_d)) {}

ZTShapeBase::ZTShapeBase(ZTShapeBase &&other) noexcept = default;

// Kept: assignment shares the record instead of copying it, so that hosts that hold a shape by
// value can let two of them stand for one geometry. The count in the record deletes it once.
ZTShapeBase &ZTShapeBase::operator=(const ZTShapeBase &other)
{
    m_d = other.m_d;
    ztoutlinechanges::note(nullptr);
    return *this;
}

ZTShapeBase &ZTShapeBase::operator=(ZTShapeBase &&other) noexcept
{
    m_d = std::move(other.m_d);
    ztoutlinechanges::note(nullptr);
    return *this;
}

ZTShapeBase::~ZTShapeBase() = default;

QString ZTShapeBase::text() const { return {}; }

void ZTShapeBase::setText(const QString &) {}

const QPainterPath &ZTShapeBase::getLines() const { return m_d->lines; }

void ZTShapeBase::setTransformParam(const QTransform &transform)
{
    m_d->transformParam = fromItsNumbers(transform);
    setUpdate(1);
    paint();
}

QTransform &ZTShapeBase::getTransformParam() { return m_d->transformParam; }

QTransform &ZTShapeBase::getRoundingTransformParam() { return m_d->roundingTransformParam; }

void ZTShapeBase::setRoundingTransformParam(const QTransform &transform)
{
    m_d->roundingTransformParam = fromItsNumbers(transform);
}

QRectF ZTShapeBase::getRect() const { return m_d->rect; }

void ZTShapeBase::setRect(const QRectF &rectMm)
{
    if (rectMm != m_d->rect) {
        m_d->rect = rectMm;
        setUpdate(1);
    }
}

QRectF ZTShapeBase::controlPointRect() { return m_d->linesRect; }

void ZTShapeBase::scale(double sx, double sy)
{
    m_d->rect.setSize(QSizeF(m_d->rect.width() * sx, m_d->rect.height() * sy));
}

ZTFillParam ZTShapeBase::getFillParam() { return m_d->fillParam; }

void ZTShapeBase::setFillParam(const ZTFillParam &param)
{
    m_d->fillParam = param;
    setUpdate(1);
}

ShapeType ZTShapeBase::getShapeType() { return m_d->shapeType; }

void ZTShapeBase::setShapeType(const ShapeType &type) { m_d->shapeType = type; }

const QVector<QLineF> &ZTShapeBase::getFillLines() const { return m_d->fillLines.lines(); }

bool ZTShapeBase::load(QDataStream &stream)
{
    stream >> *this;
    setUpdate(1);
    return true;
}

void ZTShapeBase::save(QDataStream &stream) const { stream << *this; }

int ZTShapeBase::getId() const { return m_d->id; }
void ZTShapeBase::setId(int id) { m_d->id = id; }
int ZTShapeBase::getPenId() const { return m_d->penId; }
void ZTShapeBase::setPenId(int penId) { m_d->penId = penId; }
bool ZTShapeBase::getLockAspectRatio() const { return m_d->lockAspectRatio; }
void ZTShapeBase::setLockAspectRatio(bool lock) { m_d->lockAspectRatio = lock; }
bool ZTShapeBase::isUpdate() const { return m_d->update != 0; }
void ZTShapeBase::setUpdate(int update) { m_d->update = update; }

QPainterPath &ZTShapeBase::getPath() const { return m_d->path; }

QTransform ZTShapeBase::pathToMm() const
{
    if (m_d->roundingTransformParam.isIdentity())
        return m_d->transformParam;
    return m_d->roundingTransformParam * m_d->transformParam;
}

void ZTShapeBase::path2Lines(bool sort)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const QTransform pathToPx = pathToMm() * coord.getMm2pixTransform();
    if (isShortRun(m_d->path)) {
        thread_local QPolygonF run;
        mapStraightRun(m_d->path, pathToPx, run);
        if (isWithinReach(run))
            m_d->setLines(run);
        else
            m_d->setLines(QPainterPath());
        return;
    }
    StraightOutline outline(m_d->path);
    if (outline.isStraight()) {
        if (sort)
            outline.sort(pathToPx, ZTPointSort::getInstance()->getShapeMarkSort());
        m_d->setLines(outline.mapped(pathToPx));
        return;
    }
    QList<QPolygonF> polygons = ZTCurveTolerance::polygons(m_d->path, pathToPx, coord.mm2pix(1.0));
    if (!isWithinReach(polygons))
        polygons.clear();
    if (sort)
        polygons = ZTPointSort::getInstance()->sort(polygons);

    m_d->setLines(pathOf(polygons));
}

void ZTShapeBase::setLines(const QPainterPath &linesPx) { m_d->setLines(linesPx); }

void ZTShapeBase::setFillLines(const QVector<QLineF> &fillLinesPx)
{
    m_d->fillLines.set(fillLinesPx);
}

QDataStream &operator<<(QDataStream &stream, const ZTShapeBase &shape)
{
    const ZTShapeBasePrivate &record = *shape.m_d;
    using Fields = PackedFields<kRecordSize>;
    if (Fields::suits(stream)) {
        const ZTFillParam &fill = record.fillParam;
        Fields fields(stream);
        fields << record.rect << record.transformParam << record.roundingTransformParam
               << static_cast<qint32>(fill.fillType) << fill.spac << fill.angle
               << fill.isEnableBorder << static_cast<qint32>(record.shapeType) << record.update
               << record.id << record.lockAspectRatio << record.penId;
        fields.writeTo(stream);
        return stream;
    }
    return stream << record.rect << record.transformParam << record.roundingTransformParam
                  << record.fillParam << static_cast<qint32>(record.shapeType) << record.update
                  << record.id << record.lockAspectRatio << record.penId;
}

QDataStream &operator>>(QDataStream &stream, ZTShapeBase &shape)
{
    ZTShapeBasePrivate &record = *shape.m_d;
    qint32 shapeType = 0;
    // What is no file may give a field in parts.
    if (PackedFields<kRecordSize>::suits(stream) && !stream.device()->isSequential()) {
        ZTFillParam &fill = record.fillParam;
        qint32 fillType = 0;
        UnpackedFields<kRecordSize> fields(stream);
        fields >> record.rect >> record.transformParam >> record.roundingTransformParam >>
            fillType >> fill.spac >> fill.angle >> fill.isEnableBorder >> shapeType >>
            record.update >> record.id >> record.lockAspectRatio >> record.penId;
        fill.fillType = static_cast<FillType>(fillType);
        record.shapeType = static_cast<ShapeType>(shapeType);
        return stream;
    }
    stream >> record.rect >> record.transformParam >> record.roundingTransformParam >>
        record.fillParam >> shapeType >> record.update >> record.id >> record.lockAspectRatio >>
        record.penId;
    // Kept: eight bits in memory, so only the low ones of the stream's 32 count.
    record.shapeType = static_cast<ShapeType>(shapeType);
    return stream;
}
