#include <studio/paths/PathTools.h>

#include <studio/paths/CleanDialog.h>
#include <studio/paths/OffsetDialog.h>
#include <studio/paths/PathActions.h>

namespace studio {

PathTools::PathTools(ZTGraphicsDocument &document, QWidget &window)
    : QObject(&window), m_document(document), m_window(window),
      m_actions(new PathActions(document, this))
{
    connect(m_actions, &PathActions::told, this, &PathTools::told);
}

// The dialog has a preview on the scene, which goes soon after this.
PathTools::~PathTools() { delete m_offsetDialog; }

void PathTools::showOffset()
{
    delete m_offsetDialog;
    m_offsetDialog = new OffsetDialog(m_document, *m_actions, &m_window);
    m_offsetDialog->open();
}

void PathTools::showCleaning()
{
    auto *dialog = new CleanDialog(m_actions->selectedDrawing(), &m_window);
    connect(dialog, &CleanDialog::chosen, m_actions,
            [this, dialog] { m_actions->takeCleaned(dialog->cleaned()); });
    dialog->open();
}

} // namespace studio
