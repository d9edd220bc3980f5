#pragma once

#include <studio/text/TextPage.h>

QT_BEGIN_NAMESPACE
class QGroupBox;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/** Text on an arc. */
class ArcPage final : public TextPage
{
    Q_OBJECT

public:
    explicit ArcPage(const TextSettings &settings, QWidget *parent = nullptr);
    void read(TextSettings &settings) const override;

private:
    QGroupBox *m_group;
    MeasureBox *m_startBox;
    MeasureBox *m_spanBox;
    MeasureBox *m_diameterBox;
};

} // namespace studio
