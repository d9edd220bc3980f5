#pragma once

#include <studio/text/FontOffers.h>
#include <studio/text/TextPage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QFontComboBox;
class QLabel;
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

    /** Takes other fonts, as if the user had chosen them on the page. */
    void choose(const FontOffer &offer);

private:
    QWidget *newSystemPart(const TextSettings &settings);
    QWidget *newStrokePart(const TextSettings &settings);
    QWidget *newSizes(const TextSettings &settings);
    void showKind();
    void showFamily();
    void takeFamily(const QString &family);

    QRadioButton *m_systemButton;
    QRadioButton *m_strokeButton;
    QStackedWidget *m_kinds;
    QFontComboBox *m_familyBox = nullptr;
    QString m_family; ///< of the text, installed or not, until another one is chosen
    QLabel *m_missingLabel = nullptr;
    QCheckBox *m_boldBox = nullptr;
    QCheckBox *m_italicBox = nullptr;
    StrokeSamples *m_samples = nullptr;
    StrokeFontList *m_regularList = nullptr;
    StrokeFontList *m_bigList = nullptr;
    MeasureBox *m_heightBox = nullptr;
    MeasureBox *m_widthBox = nullptr; ///< percent
    MeasureBox *m_charSpacingBox = nullptr;
    MeasureBox *m_lineSpacingBox = nullptr;
};

} // namespace studio
