#pragma once

#include "OpenedDrawing.h"

#include <QtCore/QCoreApplication>

/** Tells on stdout what a drawing holds. */
class DrawingInfo
{
    Q_DECLARE_TR_FUNCTIONS(DrawingInfo)

public:
    explicit DrawingInfo(const OpenedDrawing &described);

    void print() const;

private:
    void printFile() const;
    void printField() const;
    void printShapes() const;
    void printHatches() const;
    void printImports() const;
    void printFonts() const;
    void printVariantTexts() const;
    void printFindings() const;
    void printPreview() const;

    const OpenedDrawing &m_drawing;
    const QVector<ZTAbstractGraphicsItem *> m_items; ///< the drawing's
};
