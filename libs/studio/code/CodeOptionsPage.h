#pragma once

#include <studio/code/CodePage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;
QT_END_NAMESPACE

namespace studio {

/** What the kinds of codes can be asked for; each shows only what it has. */
class CodeOptionsPage final : public CodePage
{
    Q_OBJECT

public:
    explicit CodeOptionsPage(const CodeEdit &edit, QWidget *parent = nullptr);
    void read(CodeEdit &edit) const override;
    void setKind(codekit::CodeKind kind) override;

private:
    void layOut();
    void fillLevels(const codekit::CodeKindInfo &info, int level);
    void fillSizes(const codekit::CodeKindInfo &info, int version);
    void fillMasks(const codekit::CodeKindInfo &info, int mask);

    codekit::CodeSpec m_initial; ///< what is shown first, for the kind that it belongs to
    QComboBox *m_levelBox;
    QComboBox *m_sizeBox;
    QComboBox *m_maskBox;
    QSpinBox *m_columnsBox;
    QComboBox *m_charsetBox;
    QCheckBox *m_rectangularBox;
    QCheckBox *m_checkDigitBox;
    QCheckBox *m_escapesBox;
    QLabel *m_limits;
    QFormLayout *m_form = nullptr;
};

} // namespace studio
