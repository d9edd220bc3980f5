#include <studio/text/TextDialog.h>

#include <studio/UndoTexts.h>
#include <studio/text/ArcPage.h>
#include <studio/text/FontPage.h>
#include <studio/text/HatchPage.h>
#include <studio/text/WordsPage.h>

namespace studio {

TextDialog::TextDialog(ZTGraphicsTextItem &item, QUndoStack &stack, QWidget *parent)
    : PreviewDialog(item, stack, parent), m_initial(TextSettings::of(item)),
      m_hatch(new HatchPage(m_initial))
{
    setObjectName(QStringLiteral("textDialog"));
    setWindowTitle(tr("Text"));
    addTextPage(new WordsPage(m_initial), tr("&1 Words"));
    addTextPage(new FontPage(m_initial), tr("&2 Font"));
    addTextPage(new ArcPage(m_initial), tr("&3 Arc"));
    addTextPage(m_hatch, tr("&4 Hatch"));
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
