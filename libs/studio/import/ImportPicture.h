#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

namespace studio {

/** What a drawing looks like before it comes in: its outlines, as large as the widget allows. */
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
        QPainterPath path;
        QColor color;
    };
    QVector<Part> m_parts;
    QVector<vectorkit::VectorText> m_texts;
    QRectF m_boxMm;
};

} // namespace studio
