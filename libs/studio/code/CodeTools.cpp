#include <studio/code/CodeTools.h>

#include <studio/code/CodeDialog.h>
#include <studio/code/VerifyDialog.h>
#include <studio/shapes/ShapeItems.h>

namespace studio {

CodeTools::CodeTools(ZTGraphicsDocument &document, QWidget &window)
    : QObject(&window), m_document(document), m_window(window)
{
    connect(m_document.view(), &ZTGraphicsView::sigOnItemDouble, this, &CodeTools::open);
}

CodeTools::~CodeTools()
{
    delete m_dialog;
    delete m_verifyDialog;
}

codekit::CodeItem *CodeTools::selectedCode() const
{
    const QList<QGraphicsItem *> &selected =
        m_document.scene()->getGraphicsResizeItem()->selectItem();
    return selected.size() == 1 ? dynamic_cast<codekit::CodeItem *>(selected.first()) : nullptr;
}

void CodeTools::open(ShapeItem *item)
{
    // A handle of the frame is no item; it stands for what the frame is around.
    codekit::CodeItem *code = item != nullptr ? codekit::codeItem(item) : selectedCode();
    if (code != nullptr)
        showDialogFor(*code);
}

void CodeTools::showDialog() { open(selectedCode()); }

void CodeTools::showDialogFor(codekit::CodeItem &item)
{
    delete m_dialog;
    m_dialog = new CodeDialog(item, *m_document.undoStack(), &m_window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->open();
}

void CodeTools::verify()
{
    delete m_verifyDialog;
    m_verifyDialog = new VerifyDialog(m_document, &m_window);
    m_verifyDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_verifyDialog->show();
    m_verifyDialog->start();
}

} // namespace studio
