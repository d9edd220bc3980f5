#pragma once

#include <studio/panel/PanelSection.h>
#include <studio/text/TextSettings.h>

#include <functional>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QFontComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace studio {

/**
 * Font, sizes and arc of the selected texts, live. Angles are counter-clockwise, as every angle of
 * the program is; sizes are those of the marked part.
 */
class TextSection : public PanelSection
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit TextSection(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;

Q_SIGNALS:
    /** The user wants to change the words, which have a dialog of their own. */
    void wordsWanted();

protected:
    void retranslate() override;

private:
    using Change = std::function<void(TextSettings &settings)>;

    /** A number among the settings, as the field shows it: `factor` times what is kept. */
    struct Number
    {
        QLabel *label;
        MeasureField *field;
        QLabel *unit;
        double TextSettings::*member;
        double factor;
    };

    void buildFonts(QGridLayout &grid);
    void buildNumbers(QGridLayout &grid);
    void addNumber(QGridLayout &grid, const char *name, MeasureField::Quantity quantity,
                   const MeasureField::Range &range, double TextSettings::*member, double factor);
    QLabel *addRow(QGridLayout &grid, QWidget *field);
    void showFonts(const QVector<TextSettings> &settings);
    static void showStrokeFont(QComboBox &box, const QStringList &fonts,
                               const std::optional<QString> &name);
    QString change(const Change &change);
    ShapeItems selectedTexts() const;

    ZTGraphicsDocument &m_document;
    QLabel *m_hint;
    QPushButton *m_words;
    QComboBox *m_kind;
    QFontComboBox *m_family;
    QComboBox *m_letters;
    QComboBox *m_chinese;
    QCheckBox *m_arc;
    QVector<QLabel *> m_fontLabels; ///< of kind, family, letters, Chinese
    QVector<Number> m_numbers;      ///< in the order of the page
};

} // namespace studio
