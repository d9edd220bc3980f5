#pragma once

#include <studio/code/CodePage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QFormLayout;
class QRadioButton;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/** Size of a code and what is marked of it. */
class CodeFormPage final : public CodePage
{
    Q_OBJECT

public:
    explicit CodeFormPage(const CodeEdit &edit, QWidget *parent = nullptr);
    void read(CodeEdit &edit) const override;
    void setKind(codekit::CodeKind kind) override;

private:
    void fill(const CodeEdit &edit);
    void fillStyles(codekit::CodeStyle chosen);
    void layOut();
    void showRows();
    void tellChanges();

    QRadioButton *m_moduleButton;
    QRadioButton *m_widthButton;
    MeasureBox *m_moduleBox;
    MeasureBox *m_widthBox;
    MeasureBox *m_heightBox;
    QComboBox *m_styleBox;
    MeasureBox *m_dotBox; ///< percent
    MeasureBox *m_growthBox;
    QCheckBox *m_inverseBox;
    QCheckBox *m_quietBox;
    QFormLayout *m_form = nullptr;
    bool m_isLinear = false;
};

} // namespace studio
