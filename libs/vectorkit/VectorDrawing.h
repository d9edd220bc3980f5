#pragma once

#include <vectorkit/VectorPath.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace vectorkit {

/** The formats that are told apart by content. */
enum class VectorFormat : quint8 { Unknown, Hpgl, Svg, Dxf };

/**
 * What is drawn without a jump or belongs together as an outline with its holes: one or more runs
 * of one colour.
 */
struct VectorShape
{
    QVector<VectorPath> paths; ///< its outline, then its holes; millimetres
    QColor color; ///< of the stroke, or of the fill where it is not stroked; may be invalid
    int pen = 0;  ///< the plotter's pen, or the index of a colour; 0: the format has none
    bool isStroked = true;                   ///< its outline is drawn
    bool isFilled = false;                   ///< its inside is filled, by `fillRule`
    Qt::FillRule fillRule = Qt::OddEvenFill; ///< what of it is inside
    double strokeWidthMm = 0.0;              ///< 0: as thin as it gets, or not said
    QString id;                              ///< the name the file gives it; may be empty
};

/** Where a text stands from its anchor. */
enum class TextAnchor : quint8 { Left, Middle, Right };

/** A text that stays one that can be edited. */
struct VectorText
{
    QString text;             ///< one line
    QPointF positionMm;       ///< of the anchor on the base line
    double heightMm = 0.0;    ///< of capitals
    double angleDeg = 0.0;    ///< positive turns counter-clockwise on the screen
    double widthFactor = 1.0; ///< of the letters; 1 is the font's own
    double lengthMm = 0.0;    ///< from the first letter to past the last; 0: the font's own
    double slantDeg = 0.0;    ///< positive leans to the right
    bool isMirrored = false;  ///< runs to the left
    TextAnchor anchor = TextAnchor::Left; ///< which point of it stands at `positionMm`
    QString fontFamily;                   ///< as the file names it; may be empty
    QColor color;                         ///< of its letters; may be invalid
    int pen = 0;                          ///< as of a shape
};

/** A layer, from the lowest up in its drawing. */
struct VectorLayer
{
    QString name;                ///< as the file names it; may be empty
    QColor color;                ///< invalid: none of its own
    QVector<VectorShape> shapes; ///< in the file's order
    QVector<VectorText> texts;   ///< in the file's order
};

/** What was left out or mended: said once a kind, with how often and where first. */
struct VectorNote
{
    enum class Kind : quint8 {
        Left,    ///< not read; it is missing from the drawing
        Changed, ///< read, but not as the file says it
        Damaged  ///< the file is wrong there
    };
    Kind kind = Kind::Left;
    QString what;     ///< one phrase, translated: "images", "command LT (line type)"
    qint64 count = 1; ///< how often
    QString where;    ///< the first place: "line 12", "byte 4711", "object handle 2F"; may be empty
};

/** How the size of a drawing is known. */
enum class SizeSource : quint8 {
    Format,   ///< the format fixes its unit
    Declared, ///< the file says it
    Guessed,  ///< by the extent and the common defaults; ask the user
    Chosen    ///< by whoever reads
};

/** A foreign drawing: a value, which may be taken to another thread. */
struct VectorDrawing
{
    VectorFormat format = VectorFormat::Unknown; ///< what the file is
    QString formatVersion;                      ///< "HP-GL/2", "1.1", "AC1015 (2000)"; may be empty
    QString producer;                           ///< program that wrote it, if it says so
    QVector<VectorLayer> layers;                ///< the lowest first
    QSizeF declaredSizeMm;                      ///< of the sheet; empty: none
    double unitMm = 1.0;                        ///< length of the file's unit
    SizeSource sizeSource = SizeSource::Format; ///< how `unitMm` is known
    QString sizeReason;                         ///< one sentence, translated: why this unit
    QVector<VectorNote> notes;                  ///< what was left out or mended

    /** Box of all paths, millimetres; null when there is nothing. Texts do not count. */
    QRectF boundsMm() const;
    int shapeCount() const;
    int pathCount() const;
    int textCount() const;
    /** Whether the pens of shapes and texts are a plotter's. Those of a DXF are indices of colours.
     */
    bool hasPens() const { return format != VectorFormat::Dxf; }
    bool isEmpty() const { return shapeCount() == 0 && textCount() == 0; }

    /** Adds to the note of this kind and text, or makes one. */
    void note(VectorNote::Kind kind, const QString &what, const QString &where, qint64 count = 1);

    /** Scales all of it about (0, 0), sizes included. Range: `factor` greater than 0. */
    void scale(double factor);
};

} // namespace vectorkit

Q_DECLARE_TYPEINFO(vectorkit::VectorShape, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(vectorkit::VectorText, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(vectorkit::VectorLayer, Q_MOVABLE_TYPE);
