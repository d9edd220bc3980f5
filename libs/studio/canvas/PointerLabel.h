#pragma once

#include <QtWidgets/QLabel>

namespace studio {

/** A few words beside the mouse that tell a measure while something is dragged. */
class PointerLabel : public QLabel
{
    Q_OBJECT

public:
    /** A hidden label over `canvas`, which owns it. It lets the mouse through. */
    explicit PointerLabel(QWidget *canvas);

    /** Shows the words beside a place of the canvas, always in sight. */
    void tell(const QString &words, const QPoint &pos);
};

} // namespace studio
