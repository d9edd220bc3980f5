#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

namespace studio {

/**
 * What a drawing looks like before it comes in: its outlines, as large as the widget allows. Closed
 * ones are tinted, and dots stand at the ends of open ones.
 */
class ImportPicture : public QWidget
{
    Q_OBJECT

public:
    explicit ImportPicture(QWidget *parent = nullptr);

    /** Takes the outlines and the places of the texts; the form is shown, not the size. */
    void show(const vectorkit::VectorDrawing &drawing);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Part
    {
        QPainterPath open;
        QPainterPath closed;
        QColor color;
    };
    void take(const vectorkit::VectorPath &path, Part *part);
    void paintTexts(QPainter *painter) const;

    QVector<Part> m_parts;
    QVector<vectorkit::VectorText> m_texts;
    QVector<QPointF> m_endsMm; ///< of open outlines, as many as can be told apart
    QRectF m_boxMm;
};

} // namespace studio
