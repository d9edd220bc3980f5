#include <vectorkit/dxf/DxfEntities_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace vectorkit::dxf {

namespace {

constexpr int kMostDepth = 64;
constexpr int kMostCopies = 32767; // in a row; what the code can hold

/** The turn of an insert in its plane. */
Frame turnOf(const Record &record)
{
    bool isSound = true;
    const double angle = qDegreesToRadians(record.number(50, 0.0, &isSound));
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return {{cosine, sine, 0.0}, {-sine, cosine, 0.0}, {0.0, 0.0, 1.0}, {}};
}

/** A copy of a block: placed, scaled and turned in the plane of its insert. */
Frame insertFrame(const Record &record, bool *isSound)
{
    const auto factor = [&](int code) {
        const double value = record.number(code, 1.0, isSound);
        return value == 0.0 ? 1.0 : value; // flat copies are a slip of programs, which mean 1
    };
    record.number(50, 0.0, isSound);
    const Frame turn = turnOf(record);
    return {turn.x * factor(41), turn.y * factor(42), turn.z * factor(43),
            pointOf(record, 10, isSound)};
}

} // namespace

Frame frameOf(const Record &record, const Frame &sheet, bool *isSound)
{
    if (!record.has(230))
        return sheet;
    return sheet * objectFrame(pointOr(record, 210, {0.0, 0.0, 1.0}, isSound));
}

Vec3 pointOf(const Record &record, int code, bool *isSound)
{
    const double missing = std::nan("");
    Vec3 point = pointOr(record, code, {missing, missing, 0.0}, isSound);
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        *isSound = false;
    return point;
}

Vec3 pointOr(const Record &record, int code, const Vec3 &fallback, bool *isSound)
{
    return {record.number(code, fallback.x, isSound), record.number(code + 10, fallback.y, isSound),
            record.number(code + 20, fallback.z, isSound)};
}

double scaleOf(const Frame &frame)
{
    const QPointF x = frame.flatDirection({1.0, 0.0, 0.0});
    const QPointF y = frame.flatDirection({0.0, 1.0, 0.0});
    return std::sqrt(std::abs(x.x() * y.y() - x.y() * y.x()));
}

EntityReader::EntityReader(const File &from, const ReadOptions &how, VectorDrawing *to)
    : m_read(from), m_options(how), m_drawing(to), m_layers(from.layers),
      m_layerByKey(from.layerIndex)
{
    for (const LayerEntry &layer : m_layers) {
        VectorLayer added;
        added.name = layer.name;
        added.color = layer.color.trueColor.isValid() ? layer.color.trueColor
                                                      : indexedColor(layer.color.index);
        m_drawing->layers.append(added);
    }
}

EntityReader::Draw EntityReader::drawerOf(std::string_view type)
{
    static const std::unordered_map<std::string_view, Draw> kDrawers = {
        {"LINE", drawLine},         {"CIRCLE", drawCircle},     {"ARC", drawArc},
        {"ELLIPSE", drawEllipse},   {"POLYLINE", drawPolyline}, {"LWPOLYLINE", drawLwPolyline},
        {"SPLINE", drawSpline},     {"SOLID", drawSolid},       {"TRACE", drawSolid},
        {"3DLINE", drawLine},       {"3DFACE", drawFace},       {"LEADER", drawLeader},
        {"HATCH", drawHatch},       {"TEXT", drawText},         {"MTEXT", drawParagraph},
        {"ATTDEF", drawDefinition}, {"POINT", drawPoint},       {"ATTRIB", drawText},
        {"HELIX", drawHelix}};
    const auto found = kDrawers.find(type);
    return found == kDrawers.end() ? nullptr : found->second;
}

bool EntityReader::isWithin()
{
    constexpr int kEvery = 1024;
    if (m_drawn % kEvery == 0 && m_options.progress && !m_cancelled)
        m_cancelled = !m_options.progress(m_read.tags.doneShare());
    // Copies of blocks without a single line take time as well.
    m_tooLarge = m_tooLarge || m_pieces > m_options.mostPieces || m_drawn > m_options.mostPieces;
    return !m_tooLarge && !m_cancelled;
}

bool EntityReader::add(const Record &entity, const Setting &setting)
{
    ++m_drawn;
    ++m_entities;
    if (!setting.isInBlock)
        m_record = &entity;
    if (entity.isDamaged) {
        noteDamage(entity);
        return isWithin();
    }
    const bool isInsert = entity.type == "INSERT";
    if (!isShown(entity, setting, isInsert))
        return isWithin();
    if (isInsert)
        return addInsert(entity, setting);
    if (entity.type == "DIMENSION" || entity.type == "ARC_DIMENSION" || entity.type == "ACAD_TABLE")
        return addPicture(entity, setting);
    const Draw draw = drawerOf(entity.type);
    if (draw) {
        m_current = lookOf(entity, setting);
        if (draw(entity, setting.sheet, this) == Outcome::Damaged)
            noteDamage(entity);
    } else {
        const QString name = QString::fromLatin1(
            entity.type.data(), static_cast<int>(std::min<std::size_t>(entity.type.size(), 40)));
        m_drawing->note(
            VectorNote::Kind::Left,
            QCoreApplication::translate("vectorkit", "entities of the kind %1").arg(name),
            m_read.tags.where(entity.position));
    }
    return isWithin();
}

void EntityReader::noteDamage(const Record &entity)
{
    ++m_damaged;
    const QString name = QString::fromLatin1(
        entity.type.data(), static_cast<int>(std::min<std::size_t>(entity.type.size(), 40)));
    m_drawing->note(
        VectorNote::Kind::Damaged,
        QCoreApplication::translate("vectorkit", "%1 with a value that is missing or wrong")
            .arg(name),
        m_read.tags.where(entity.position));
}

void EntityReader::note(VectorNote::Kind kind, const char *what)
{
    m_drawing->note(kind, QCoreApplication::translate("vectorkit", what),
                    m_read.tags.where(m_record ? m_record->position : 0));
}

bool EntityReader::isShown(const Record &entity, const Setting &setting, bool isInsert)
{
    const int own = layerOf(entity.text(8));
    const bool isOfInsert =
        setting.isInBlock && m_layers[static_cast<std::size_t>(own)].name == QLatin1String("0");
    const LayerEntry &layer =
        m_layers[static_cast<std::size_t>(isOfInsert ? setting.look.layer : own)];
    if (!setting.isInBlock && entity.integer(67, 0) == 1) {
        if (entity.type != "VIEWPORT") // every sheet has one
            note(VectorNote::Kind::Left,
                 QT_TRANSLATE_NOOP("vectorkit", "things of the paper space"));
    } else if (layer.isFrozen) {
        note(VectorNote::Kind::Left, QT_TRANSLATE_NOOP("vectorkit", "things on frozen layers"));
    } else if (layer.isOff && !isInsert) {
        // What a block holds may stand on other layers, which are on.
        note(VectorNote::Kind::Left,
             QT_TRANSLATE_NOOP("vectorkit", "things on layers that are switched off"));
    } else if (entity.integer(60, 0) == 1) {
        note(VectorNote::Kind::Left, QT_TRANSLATE_NOOP("vectorkit", "things made invisible"));
    } else {
        return true;
    }
    return false;
}

int EntityReader::layerOf(std::string_view name)
{
    const QByteArray bytes = QByteArray::fromRawData(name.data(), static_cast<int>(name.size()));
    const auto known = m_layerByName.constFind(bytes);
    if (known != m_layerByName.constEnd())
        return *known;
    QString decoded = m_read.decoder.decode(trimmed(name));
    if (decoded.isEmpty())
        decoded = QStringLiteral("0");
    const QString key = decoded.toUpper();
    auto found = m_layerByKey.find(key);
    if (found == m_layerByKey.end()) {
        found = m_layerByKey.insert(key, static_cast<int>(m_layers.size()));
        LayerEntry entry;
        entry.name = decoded;
        m_layers.push_back(entry);
        VectorLayer added;
        added.name = decoded;
        added.color = indexedColor(entry.color.index);
        m_drawing->layers.append(added);
    }
    m_layerByName.insert(QByteArray(bytes.constData(), bytes.size()), *found);
    return *found;
}

Look EntityReader::lookOf(const Record &entity, const Setting &setting)
{
    Look look;
    look.layer = layerOf(entity.text(8));
    if (setting.isInBlock &&
        m_layers[static_cast<std::size_t>(look.layer)].name == QLatin1String("0"))
        look.layer = setting.look.layer;
    const LayerEntry &layer = m_layers[static_cast<std::size_t>(look.layer)];
    ColorTag color = colorOf(entity);
    if (!color.trueColor.isValid() && color.index == ColorTag::kByLayer)
        color = layer.color;
    if (color.trueColor.isValid()) {
        look.color = color.trueColor;
    } else if (color.index == ColorTag::kByBlock && setting.isInBlock) {
        look.color = setting.look.color;
        look.pen = setting.look.pen;
    } else {
        look.pen = color.index == ColorTag::kByBlock ? 7 : color.index;
        look.color = indexedColor(look.pen);
    }
    const std::string_view lineType = entity.text(6);
    const bool isDashed =
        lineType.empty() || lineType == "BYLAYER" || lineType == "ByLayer"
            ? layer.isDashed
            : !isWholeLine(QString::fromLatin1(lineType.data(), static_cast<int>(lineType.size())));
    if (isDashed)
        note(VectorNote::Kind::Changed,
             QT_TRANSLATE_NOOP("vectorkit", "dashed line types: drawn without gaps"));
    return look;
}

void EntityReader::addShape(const VectorShape &shape)
{
    VectorShape added = shape;
    added.color = m_current.color;
    added.pen = m_current.pen;
    for (const VectorPath &path : shape.paths)
        m_pieces += path.pieceCount();
    m_drawing->layers[m_current.layer].shapes.append(added);
}

void EntityReader::addPath(const PathPen &pen, double widthMm)
{
    VectorShape shape;
    shape.paths.append(pen.path());
    shape.strokeWidthMm = widthMm;
    addShape(shape);
}

void EntityReader::addText(const VectorText &text)
{
    VectorText added = text;
    added.color = m_current.color;
    added.pen = m_current.pen;
    ++m_pieces;
    m_drawing->layers[m_current.layer].texts.append(added);
}

bool EntityReader::addInsert(const Record &entity, const Setting &setting)
{
    bool isSound = true;
    const Frame plane = frameOf(entity, setting.sheet, &isSound);
    const Frame placed = insertFrame(entity, &isSound);
    const Vec3 step{entity.number(44, 0.0, &isSound), entity.number(45, 0.0, &isSound), 0.0};
    const auto block = m_read.blocks.constFind(m_read.decoder.key(entity.text(2)));
    if (!isSound) {
        noteDamage(entity);
    } else if (block == m_read.blocks.constEnd()) {
        note(VectorNote::Kind::Damaged,
             QT_TRANSLATE_NOOP("vectorkit", "inserts of a block that is missing"));
    } else if (block->isOutside) {
        note(VectorNote::Kind::Left,
             QT_TRANSLATE_NOOP("vectorkit", "blocks that stand in other files"));
    } else {
        const int columns = std::clamp(entity.integer(70, 1), 1, kMostCopies);
        const int rows = std::clamp(entity.integer(71, 1), 1, kMostCopies);
        const Frame turn = turnOf(entity);
        Setting inner{{}, lookOf(entity, setting), true, setting.depth + 1};
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                Frame copy = placed;
                copy.origin = placed.origin + turn.x * (step.x * column) + turn.y * (step.y * row);
                inner.sheet = plane * copy;
                if (!addBlock(*block, inner))
                    return false;
            }
        }
    }
    for (const Record &part : entity.parts) {
        constexpr int kInvisible = 1;
        if ((part.integer(70, 0) & kInvisible) == 0 && !add(part, setting))
            return false;
    }
    return isWithin();
}

bool EntityReader::addPicture(const Record &entity, const Setting &setting)
{
    const auto block = m_read.blocks.constFind(m_read.decoder.key(entity.text(2)));
    if (block == m_read.blocks.constEnd() || block->entities.empty()) {
        note(VectorNote::Kind::Left,
             QT_TRANSLATE_NOOP("vectorkit", "dimensions without a picture of theirs"));
        return isWithin();
    }
    Setting inner{setting.sheet, lookOf(entity, setting), true, setting.depth + 1};
    if (entity.type == "ACAD_TABLE") {
        bool isSound = true;
        inner.sheet.origin = setting.sheet.map(pointOf(entity, 10, &isSound));
        if (!isSound) {
            noteDamage(entity);
            return isWithin();
        }
    }
    return addBlock(*block, inner);
}

bool EntityReader::addBlock(const Block &block, const Setting &setting)
{
    ++m_drawn;
    const bool isOpen = std::find(m_open.begin(), m_open.end(), &block) != m_open.end();
    if (isOpen || setting.depth > kMostDepth) {
        note(VectorNote::Kind::Damaged,
             QT_TRANSLATE_NOOP("vectorkit", "blocks that hold themselves, or too many in another"));
        return isWithin();
    }
    Setting inner = setting;
    inner.sheet.origin = setting.sheet.map(block.base * -1.0);
    m_open.push_back(&block);
    bool goesOn = isWithin();
    for (auto entity = block.entities.begin(); goesOn && entity != block.entities.end(); ++entity)
        goesOn = add(*entity, inner);
    m_open.pop_back();
    return goesOn;
}

} // namespace vectorkit::dxf
