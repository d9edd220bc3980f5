#include <studio/panel/ChoiceBox.h>

#include <QtWidgets/QStylePainter>

namespace studio {

void ChoiceBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    if (currentIndex() < 0) {
        option.currentText = placeholderText();
        const QColor pale = palette().color(QPalette::PlaceholderText);
        option.palette.setColor(QPalette::ButtonText, pale);
        option.palette.setColor(QPalette::Text, pale);
    }
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace studio
