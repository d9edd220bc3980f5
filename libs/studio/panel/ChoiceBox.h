#pragma once

#include <QtWidgets/QComboBox>

namespace studio {

/**
 * A list to choose from that shows its placeholder while nothing is chosen, in the colour of
 * placeholders; a plain combo box leaves itself empty.
 */
class ChoiceBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace studio
