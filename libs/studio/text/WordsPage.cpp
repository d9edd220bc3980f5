#include <studio/text/WordsPage.h>

#include <studio/text/VariantPanel.h>

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStackedWidget>

namespace studio {

WordsPage::WordsPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), fixedButton(new QRadioButton(tr("&Fixed text"), this)),
      variantButton(new QRadioButton(tr("&Variant text, another for each part"), this)),
      words(new QPlainTextEdit(settings.fixedText, this)), panel(new VariantPanel(this)),
      kinds(new QStackedWidget(this))
{
    fixedButton->setObjectName(QStringLiteral("fixedText"));
    variantButton->setObjectName(QStringLiteral("variantText"));
    words->setObjectName(QStringLiteral("words"));
    words->setTabChangesFocus(true);
    kinds->addWidget(words);
    kinds->addWidget(panel);
    panel->showSegments(beforePresentPart(settings.variantText.getSegments()));
    (settings.isVariant ? variantButton : fixedButton)->setChecked(true);

    auto *choice = new QHBoxLayout;
    choice->addWidget(fixedButton);
    choice->addWidget(variantButton);
    choice->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addWidget(kinds, 1);
    showKind();

    connect(variantButton, &QRadioButton::toggled, this, &WordsPage::switchKind);
    connect(words, &QPlainTextEdit::textChanged, this, &TextPage::changed);
    connect(panel, &VariantPanel::changed, this, [this] {
        isVariantEdited = true;
        Q_EMIT changed();
    });
}

void WordsPage::showKind()
{
    kinds->setCurrentWidget(variantButton->isChecked() ? static_cast<QWidget *>(panel) : words);
}

void WordsPage::switchKind()
{
    // The typed text is what composing starts from.
    if (variantButton->isChecked() && panel->segments().isEmpty()) {
        panel->showSegments({ZTFixedTextSegment{words->toPlainText()}});
        isVariantEdited = true;
    }
    showKind();
    Q_EMIT changed();
}

void WordsPage::read(TextSettings &settings) const
{
    settings.fixedText = words->toPlainText();
    settings.isVariant = variantButton->isChecked();
    if (isVariantEdited)
        settings.variantText = variantTextOf(panel->segments());
}

} // namespace studio
