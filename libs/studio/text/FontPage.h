#pragma once

#include <studio/text/TextPage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QFontComboBox;
class QRadioButton;
class QStackedWidget;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;
class StrokeFontList;
class StrokeSamples;

/** The letters of a text: outlines of a system font or a pair of stroke fonts, and their size. */
class FontPage final : public TextPage
{
    Q_OBJECT

public:
    explicit FontPage(const TextSettings &settings, QWidget *parent = nullptr);
    void read(TextSettings &settings) const override;

private:
    QWidget *newSystemPart(const TextSettings &settings);
    QWidget *newStrokePart(const TextSettings &settings);
    QWidget *newSizes(const TextSettings &settings);
    void showKind();

    QRadioButton *systemButton;
    QRadioButton *strokeButton;
    QStackedWidget *kinds;
    QFontComboBox *familyBox = nullptr;
    QString shownFamily; ///< at first, for the family of the text
    QCheckBox *boldBox = nullptr;
    QCheckBox *italicBox = nullptr;
    StrokeSamples *samples = nullptr;
    StrokeFontList *regularList = nullptr;
    StrokeFontList *bigList = nullptr;
    MeasureBox *heightBox = nullptr;
    MeasureBox *widthBox = nullptr; ///< percent
    MeasureBox *charSpacingBox = nullptr;
    MeasureBox *lineSpacingBox = nullptr;
};

} // namespace studio
