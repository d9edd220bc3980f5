#pragma once

#include <vectorkit/VectorReader.h>
#include <vectorkit/dxf/DxfFile_p.h>

namespace vectorkit::dxf {

/** What came of an entity. */
enum class Outcome : quint8 { Done, Damaged };

/** How an entity looks once its block and its layer have had their say. */
struct Look
{
    int layer = 0; ///< into the drawing's layers
    QColor color;
    int pen = 0; ///< the colour's index; 0: it has none
};

/** Where an entity is drawn: on the sheet, or through the block that holds it. */
struct Setting
{
    Frame sheet; ///< from the space of the entity to the sheet
    Look look;   ///< of the block's insert
    bool isInBlock = false;
    int depth = 0;
};

/** Turns entities into shapes and texts of a drawing. */
class EntityReader
{
public:
    EntityReader(const File &read, const ReadOptions &options, VectorDrawing *drawing);

    /** Adds an entity of the sheet. False: more of it than the options allow, or cancelled. */
    bool add(const Record &record, const Setting &setting);

    /** Entities so far, those of blocks as often as they are inserted, and the damaged ones. */
    qint64 entityCount() const { return m_entities; }
    qint64 damagedCount() const { return m_damaged; }
    bool isTooLarge() const { return m_tooLarge; }
    bool isCancelled() const { return m_cancelled; }

    // For the functions that draw one kind each.
    void addShape(const VectorShape &shape);
    void addPath(const PathPen &pen, double widthMm = 0.0);
    void addText(const VectorText &text);
    void note(VectorNote::Kind kind, const char *what);
    const File &file() const { return m_read; }
    const Look &look() const { return m_current; }

private:
    using Draw = Outcome (*)(const Record &, const Frame &, EntityReader *);
    static Draw drawerOf(std::string_view type);

    bool isShown(const Record &record, const Setting &setting, bool isInsert);
    Look lookOf(const Record &record, const Setting &setting);
    int layerOf(std::string_view name);
    bool addInsert(const Record &record, const Setting &setting);
    bool addPicture(const Record &record, const Setting &setting);
    bool addBlock(const Block &block, const Setting &setting);
    bool isWithin();
    void noteDamage(const Record &record);

    const File &m_read;
    const ReadOptions &m_options;
    VectorDrawing *m_drawing;
    QHash<QByteArray, int> m_layerByName; ///< as the bytes stand
    std::vector<LayerEntry> m_layers;     ///< beside those of the drawing
    QHash<QString, int> m_layerByKey;
    std::vector<const Block *> m_open; ///< blocks that are being drawn
    const Record *m_record = nullptr;  ///< the entity of the sheet
    Look m_current;
    qint64 m_entities = 0;
    qint64 m_damaged = 0;
    qint64 m_pieces = 0;
    qint64 m_drawn = 0; ///< entities, with those of blocks as often as they are inserted
    bool m_tooLarge = false;
    bool m_cancelled = false;
};

/** The frame of an entity with its extrusion direction. */
Frame frameOf(const Record &record, const Frame &sheet, bool *isSound);

/** A point whose x has this code; x and y must be there, z may be missing. */
Vec3 pointOf(const Record &record, int code, bool *isSound);
Vec3 pointOr(const Record &record, int code, const Vec3 &fallback, bool *isSound);

// One kind of entity each.
Outcome drawPoint(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawLine(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawCircle(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawArc(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawEllipse(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawLwPolyline(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawPolyline(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawSpline(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawHelix(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawSolid(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawFace(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawLeader(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawHatch(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawText(const Record &record, const Frame &sheet, EntityReader *out);
Outcome drawParagraph(const Record &record, const Frame &sheet, EntityReader *out);

/** A definition of an attribute: drawn where it is the same for all inserts. */
Outcome drawDefinition(const Record &record, const Frame &sheet, EntityReader *out);

/** From and to in radians, the second made greater by whole turns; a whole turn when equal. */
void orderAngles(double *from, double *to);

/** A unit's length on the sheet, as the mean of both directions of the plane. */
double scaleOf(const Frame &frame);

} // namespace vectorkit::dxf
