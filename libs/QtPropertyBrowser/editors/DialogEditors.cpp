#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/QtProperty.h>
#include <QtPropertyBrowser/editors/DialogEdit_p.h>

#include <QtGui/QFontInfo>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QFontDialog>

namespace roweditors {

namespace {

/**
 * Opens a dialog below the edit; it goes with the edit, so that nothing is left to write to once
 * the row is gone. No nested event loop: the program lives on while the dialog is open.
 */
class AnyDialogEditor : public RowEditor
{
public:
    AnyDialogEditor(const EditedRow &row, DialogEdit *dialogEdit)
        : RowEditor(row, dialogEdit), m_edit(dialogEdit), m_shown(row.property)
    {
        start();
        connect(m_edit, &DialogEdit::dialogWanted, this, [this] { openDialog(); });
    }

protected:
    void showValue() override { m_edit->setContent(m_shown->valueIcon(), m_shown->valueText()); }
    virtual void openDialog() = 0;

    DialogEdit *const m_edit;

private:
    QtProperty *const m_shown; ///< the row; read only while the editor is tied to it
};

class ColorEditor : public AnyDialogEditor
{
public:
    using AnyDialogEditor::AnyDialogEditor;

protected:
    void openDialog() override
    {
        auto *dialog = new QColorDialog(value().value<QColor>(), m_edit);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setOption(QColorDialog::ShowAlphaChannel);
        connect(dialog, &QColorDialog::colorSelected, this,
                [this](const QColor &color) { write(color); });
        dialog->open();
    }
};

/** The size in pixels that a choice means; 0 where the font keeps the size that it has. */
int chosenPixels(const QFont &before, const QFont &chosen, int dotsPerInch)
{
    // The dialog knows whole points only: a size that nobody touched is not rounded to them.
    if (chosen.pointSize() == QFontInfo(before).pointSize() || chosen.pointSizeF() <= 0)
        return 0;
    return qMax(1, qRound(chosen.pointSizeF() * dotsPerInch / 72.0));
}

/** `before` with what the dialog offers taken from `chosen`; the rest of the font stays. */
QFont merged(const QFont &before, const QFont &chosen, int dotsPerInch)
{
    QFont font = before;
    font.setFamily(chosen.family());
    font.setStyleName(chosen.styleName());
    font.setWeight(chosen.weight());
    font.setStyle(chosen.style());
    font.setUnderline(chosen.underline());
    font.setStrikeOut(chosen.strikeOut());
    if (const int pixels = chosenPixels(before, chosen, dotsPerInch))
        font.setPixelSize(pixels);
    return font;
}

class FontEditor : public AnyDialogEditor
{
public:
    using AnyDialogEditor::AnyDialogEditor;

protected:
    void openDialog() override
    {
        const QFont before = value().value<QFont>();
        auto *dialog = new QFontDialog(before, m_edit);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, &QFontDialog::fontSelected, this, [this, before](const QFont &chosen) {
            write(merged(before, chosen, m_edit->logicalDpiY()));
        });
        dialog->open();
    }
};

template <class Editor>
QWidget *makeDialogEditor(const EditedRow &row, QWidget *parent)
{
    auto *edit = new DialogEdit(parent);
    new Editor(row, edit);
    return edit;
}

} // namespace

void addDialogEditors(Makers *makers)
{
    makers->insert(QMetaType::QColor, makeDialogEditor<ColorEditor>);
    makers->insert(QMetaType::QFont, makeDialogEditor<FontEditor>);
}

} // namespace roweditors
