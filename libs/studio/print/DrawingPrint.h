#pragma once

#include <QtCore/QRectF>

#include <memory>

QT_BEGIN_NAMESPACE
class QIODevice;
class QPagedPaintDevice;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

/**
 * The drawing on paper: its marks in the colours of their pens, at true size, and its measures
 * below. Where it is larger than the page it is made smaller, and the measures say by how much.
 */
class DrawingPrint
{
public:
    /** Takes the drawing's marks as they are now. Order: GUI thread. */
    explicit DrawingPrint(const ZTGraphicsDocument &document);
    ~DrawingPrint();

    /** Whether there is anything to print. */
    bool isEmpty() const;

    /** Box of the marks, mm. */
    QRectF boundsMm() const;

    /** Size of a page that takes the drawing at true size with its margins, mm. */
    QSizeF pageMm() const;

    /** Paints one page. Failure: false where the device does. */
    bool paint(QPagedPaintDevice &device) const;

    /** A PDF of one page of `pageMm`. Failure: false where the device does. */
    bool writePdf(QIODevice &device) const;

private:
    struct Marks;
    std::unique_ptr<Marks> m_marks;
};

} // namespace studio
