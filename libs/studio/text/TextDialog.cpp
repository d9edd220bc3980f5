#include <studio/text/TextDialog.h>

#include <studio/program/UndoTexts.h>
#include <studio/text/ArcPage.h>
#include <studio/text/FontPage.h>
#include <studio/text/HatchPage.h>
#include <studio/text/MissingCharactersBar.h>
#include <studio/text/WordsPage.h>

#include <QtWidgets/QHBoxLayout>

namespace studio {

TextDialog::TextDialog(ZTGraphicsTextItem &item, QUndoStack &stack, QWidget *parent)
    : PreviewDialog(item, stack, parent), m_initial(TextSettings::of(item)),
      m_hatch(new HatchPage(m_initial)), m_words(new WordsPage(m_initial)),
      m_fonts(new FontPage(m_initial)), m_missing(new MissingCharactersBar(this))
{
    setObjectName(QStringLiteral("textDialog"));
    setWindowTitle(tr("Text"));
    addTextPage(m_words, tr("&1 Words"));
    addTextPage(m_fonts, tr("&2 Font"));
    addTextPage(new ArcPage(m_initial), tr("&3 Arc"));
    addTextPage(m_hatch, tr("&4 Hatch"));
    auto *row = new QHBoxLayout;
    row->addWidget(m_missing);
    insertBelow(row);
    connect(m_missing, &MissingCharactersBar::chosen, m_fonts, &FontPage::choose);
    showMissing();
}

void TextDialog::addTextPage(TextPage *page, const QString &title)
{
    m_pages.append(page);
    addPage(page, title);
    connect(page, &TextPage::changed, this, &TextDialog::previewSoon);
}

TextSettings TextDialog::wanted() const
{
    TextSettings settings = m_initial;
    for (const TextPage *page : m_pages)
        page->read(settings);
    return settings;
}

void TextDialog::apply(bool isTaken)
{
    TextSettings settings = wanted();
    if (isTaken && settings.variantText != m_initial.variantText)
        settings.variantText.update(); // makes the present part
    settings.applyTo(static_cast<ZTGraphicsTextItem &>(*edited()));
    m_hatch->setKind(settings.kind);
    if (!isTaken)
        showMissing();
}

/** Of what the drawing shows now: of a variant text, its present part. */
void TextDialog::showMissing()
{
    m_words->markMissing(m_missing->look(edited()->text(), wanted()));
}

TextCommand::VariantText TextDialog::variantChange() const
{
    const TextSettings settings = wanted();
    const bool isChanged =
        settings.variantText != m_initial.variantText || settings.isVariant != m_initial.isVariant;
    return isChanged ? TextCommand::VariantText::Changed : TextCommand::VariantText::Kept;
}

QString TextDialog::stepText() const
{
    return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change text"));
}

} // namespace studio
