#pragma once

#include <vectorkit/dxf/DxfGeometry_p.h>
#include <vectorkit/dxf/DxfTags_p.h>

#include <QtCore/QHash>
#include <QtGui/QColor>

#include <functional>

QT_BEGIN_NAMESPACE
class QTextCodec;
QT_END_NAMESPACE

namespace vectorkit::dxf {

/** What the head of a drawing says; -1 where it doesn't. */
struct Header
{
    QString version;  ///< "AC1015"; empty: not said
    QString codePage; ///< "ANSI_1252"
    QString producer; ///< the first comment
    int units = -1;
    int measurement = -1;
    int lengthUnits = -1;
    double textSize = 0.0;
};

/** A colour as the file gives it. */
struct ColorTag
{
    static constexpr int kByBlock = 0;
    static constexpr int kByLayer = 256;

    int index = kByLayer;
    QColor trueColor; ///< invalid: by the index
};

/** The colour of an entity or a layer. */
ColorTag colorOf(const Record &record);

struct LayerEntry
{
    QString name;
    ColorTag color{7, QColor()};
    bool isOff = false;
    bool isFrozen = false;
    bool isDashed = false;
};

struct StyleEntry
{
    QString font;
    double height = 0.0;
};

struct Block
{
    Vec3 base;
    bool isOutside = false; ///< its content stands in another file
    std::vector<Record> entities;
};

/** Words of a drawing, whose bytes are in its code page. */
class TextDecoder
{
public:
    void setUp(const Header &header);

    /** With the escapes for single characters resolved. */
    QString decode(std::string_view bytes) const;

    /** Names are one whatever their case. */
    QString key(std::string_view bytes) const { return decode(trimmed(bytes)).toUpper(); }

private:
    QString decodeBytes(std::string_view bytes) const;

    const QTextCodec *m_codec = nullptr;
    bool m_prefersUtf8 = true;
};

/** A drawing but for its entities, which are read one by one. */
struct File
{
    explicit File(std::string_view bytes) : tags(bytes) {}

    TagReader tags;
    Header header;
    TextDecoder decoder;
    QHash<QString, int> layerIndex; ///< by key, into `layers`
    std::vector<LayerEntry> layers;
    QHash<QString, StyleEntry> styles;
    QHash<QString, Block> blocks;
    std::vector<TagReader::Place> entitySections;
    bool hasEnd = false;

    /** Passes over the comments at the beginning, the first of which names the producer. */
    void readOpeningComment();

    /**
     * Reads all but the entities.
     *
     * Failure: false when `goesOn` said no.
     */
    bool readFrame(const std::function<bool(double)> &goesOn);
};

/** The line type of this name has no gaps, or says nothing. */
bool isWholeLine(const QString &lineType);

/** The colour of an index, 1 to 255: 7 is black, as on paper. */
QColor indexedColor(int index);

/** Length of a unit of $INSUNITS in mm; 0: none is said. */
double declaredUnitMm(int units);

} // namespace vectorkit::dxf
