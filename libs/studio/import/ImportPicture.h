#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

namespace studio {

/**
 * What a drawing looks like before it comes in: its outlines and the letters of its texts, as
 * large as the widget allows. Closed outlines are tinted, and dots stand at the ends of open ones.
 */
class ImportPicture : public QWidget
{
    Q_OBJECT

public:
    explicit ImportPicture(QWidget *parent = nullptr);

    /** Takes the outlines and the texts as they come in; the form is shown, not the size. */
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
    struct Text
    {
        QPainterPath letters;
        QColor color;
    };
    void take(const vectorkit::VectorPath &path, Part *part);

    QVector<Part> m_parts;
    QVector<Text> m_texts;
    QVector<QPointF> m_endsMm; ///< of open outlines, as many as can be told apart
    QRectF m_boxMm;
};

} // namespace studio
