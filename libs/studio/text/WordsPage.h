#pragma once

#include <studio/text/TextPage.h>

QT_BEGIN_NAMESPACE
class QPlainTextEdit;
class QRadioButton;
class QStackedWidget;
QT_END_NAMESPACE

namespace studio {

class VariantPanel;

/** The words of a text: typed, or composed for each part anew. */
class WordsPage final : public TextPage
{
    Q_OBJECT

public:
    explicit WordsPage(const TextSettings &settings, QWidget *parent = nullptr);
    void read(TextSettings &settings) const override;

private:
    void showKind();
    void switchKind();

    QRadioButton *fixedButton;
    QRadioButton *variantButton;
    QPlainTextEdit *words;
    VariantPanel *panel;
    QStackedWidget *kinds;
    bool isVariantEdited = false;
};

} // namespace studio
