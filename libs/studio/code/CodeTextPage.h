#pragma once

#include <studio/code/CodePage.h>

QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

namespace studio {

class FontPage;

/** The text for people beside a code: where it stands and its font. */
class CodeTextPage final : public CodePage
{
    Q_OBJECT

public:
    explicit CodeTextPage(const CodeEdit &edit, QWidget *parent = nullptr);
    void read(CodeEdit &edit) const override;

private:
    void showFont();

    QComboBox *m_placeBox;
    FontPage *m_font;
};

} // namespace studio
