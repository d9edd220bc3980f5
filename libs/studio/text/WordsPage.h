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

    /** Underlines these characters in the typed text. */
    void markMissing(const QStringList &characters);

private:
    void showKind();
    void switchKind();

    QRadioButton *m_fixedButton;
    QRadioButton *m_variantButton;
    QPlainTextEdit *m_words;
    VariantPanel *m_panel;
    QStackedWidget *m_kinds;
    bool m_isVariantEdited = false;
};

} // namespace studio
