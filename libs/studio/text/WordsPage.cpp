#include <studio/text/WordsPage.h>

#include <studio/text/VariantPanel.h>

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStackedWidget>

namespace studio {

namespace {

const QColor kMissingColour(0xD0, 0x30, 0x30); // legible on light and on dark

} // namespace

WordsPage::WordsPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), m_fixedButton(new QRadioButton(tr("&Fixed text"), this)),
      m_variantButton(new QRadioButton(tr("&Variant text, another for each part"), this)),
      m_words(new QPlainTextEdit(settings.fixedText, this)), m_panel(new VariantPanel(this)),
      m_kinds(new QStackedWidget(this))
{
    m_fixedButton->setObjectName(QStringLiteral("fixedText"));
    m_variantButton->setObjectName(QStringLiteral("variantText"));
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setTabChangesFocus(true);
    m_kinds->addWidget(m_words);
    m_kinds->addWidget(m_panel);
    m_panel->setValuesPerPart(settings.valuesPerPart);
    m_panel->showSegments(beforePresentPart(settings.variantText.getSegments()));
    (settings.isVariant ? m_variantButton : m_fixedButton)->setChecked(true);

    auto *choice = new QHBoxLayout;
    choice->addWidget(m_fixedButton);
    choice->addWidget(m_variantButton);
    choice->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addWidget(m_kinds, 1);
    showKind();

    connect(m_variantButton, &QRadioButton::toggled, this, &WordsPage::switchKind);
    connect(m_words, &QPlainTextEdit::textChanged, this, &TextPage::changed);
    connect(m_panel, &VariantPanel::changed, this, [this] {
        m_isVariantEdited = true;
        Q_EMIT changed();
    });
}

void WordsPage::showKind()
{
    m_kinds->setCurrentWidget(m_variantButton->isChecked() ? static_cast<QWidget *>(m_panel)
                                                           : m_words);
}

void WordsPage::switchKind()
{
    // The typed text is what composing starts from.
    if (m_variantButton->isChecked() && m_panel->segments().isEmpty()) {
        m_panel->showSegments({ZTFixedTextSegment{m_words->toPlainText()}});
        m_isVariantEdited = true;
    }
    showKind();
    Q_EMIT changed();
}

void WordsPage::markMissing(const QStringList &characters)
{
    constexpr int kMostMarks = 2000; // more would make typing slow
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(kMissingColour);
    format.setForeground(kMissingColour);
    const QString text = m_words->document()->toRawText();
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString &character : characters) {
        int at = text.indexOf(character);
        for (; at >= 0 && marks.size() < kMostMarks; at = text.indexOf(character, at + 1)) {
            QTextCursor cursor(m_words->document());
            cursor.setPosition(at);
            cursor.setPosition(at + character.size(), QTextCursor::KeepAnchor);
            marks.append({cursor, format});
        }
    }
    m_words->setExtraSelections(marks);
}

void WordsPage::read(TextSettings &settings) const
{
    settings.fixedText = m_words->toPlainText();
    settings.isVariant = m_variantButton->isChecked();
    if (m_isVariantEdited)
        settings.variantText = variantTextOf(m_panel->segments());
}

} // namespace studio
