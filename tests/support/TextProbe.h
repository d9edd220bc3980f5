#pragma once

#include "TinyFonts.h"

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <QtCore/QStringList>
#include <QtGui/QPolygonF>

namespace testsupport {

/** A text that writes down what happens to it. */
class TextProbe : public ZTShapeText
{
public:
    using ZTShapeText::getPath;
    using ZTShapeText::setFillLines;

    void setRect(const QRectF &rectMm) override;
    void paint() override;
    void fill() override;

    /** The calls since the last time, such as "rect paint fill"; "idle" is a paint unmarked. */
    QString takeEvents();

    QStringList events;
};

/** A text in the tiny fonts, a unit of theirs one millimetre. */
TextProbe strokeText(const QString &text);

/** A square that a tiny font draws, given by its lower left corner; y downward. */
QPolygonF squareStroke(double left, double bottom, double side);

/** 100 pixels high, and no letter spacing unless told. */
QFont hundredPixelFont(double letterSpacingPx = 0.0);

/** A hatch of separate lines. */
ZTFillParam lineHatch();

/** Whether the path has just these polygons; prints both sides of the first that differs. */
bool hasPolygons(const QPainterPath &path, const QVector<QPolygonF> &expected,
                 double tolerance = 1e-9);

/** Whether every coordinate is a finite number. */
bool isFinite(const QPainterPath &path);

void setPixelsPerMm(double ratio);

/** Rows of a column "type": each `FontType`. */
void addFontTypes();

} // namespace testsupport
