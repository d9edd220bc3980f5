#pragma once

#include <studio/text/PreviewDialog.h>
#include <studio/text/TextSettings.h>

namespace studio {

class FontPage;
class HatchPage;
class MissingCharactersBar;
class TextPage;
class WordsPage;

/** All settings of a text. */
class TextDialog : public PreviewDialog
{
    Q_OBJECT

public:
    /** `item` and `stack` are borrowed; an item that goes closes the dialog. */
    TextDialog(ZTGraphicsTextItem &item, QUndoStack &stack, QWidget *parent);

protected:
    void apply(bool isTaken) override;
    TextCommand::VariantText variantChange() const override;
    QString stepText() const override;

private:
    void addTextPage(TextPage *page, const QString &title);
    TextSettings wanted() const;
    void showMissing();

    const TextSettings m_initial;
    QVector<TextPage *> m_pages;
    HatchPage *m_hatch;
    WordsPage *m_words;
    FontPage *m_fonts;
    MissingCharactersBar *m_missing;
};

} // namespace studio
