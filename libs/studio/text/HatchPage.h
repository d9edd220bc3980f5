#pragma once

#include <studio/text/TextPage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/** The hatch of outline text. */
class HatchPage final : public TextPage
{
    Q_OBJECT

public:
    explicit HatchPage(const TextSettings &settings, QWidget *parent = nullptr);
    void read(TextSettings &settings) const override;

    /** Greys what makes no sense for a kind of font. */
    void setKind(FontType kind);

private:
    QComboBox *m_typeBox;
    MeasureBox *m_spacingBox;
    MeasureBox *m_angleBox;
    QCheckBox *m_borderBox;
    QLabel *m_hint;
};

} // namespace studio
