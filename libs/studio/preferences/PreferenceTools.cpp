#include <studio/preferences/PreferenceTools.h>

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/GridItem.h>
#include <studio/commands/DrawingChoiceCommand.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/edit/DocumentActions.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/view/ViewRulers.h>

#include <QtWidgets/QUndoStack>

namespace studio {

PreferenceTools::PreferenceTools(const Reach &reach)
    : QObject(&reach.window), m_reach(reach), m_kept(Preferences::kept())
{
    setNewDrawing(m_kept.newDrawing);
    m_reach.files.newSetup().applyTo(m_reach.document);
    hold();
}

void PreferenceTools::showDialog()
{
    if (!m_dialog) {
        const PreferenceEdit shown{m_kept, m_reach.language.choice(), m_reach.snap.choice(),
                                   drawingChoice(m_reach.document), false};
        m_dialog = new PreferencesDialog(shown, &m_reach.window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_dialog, &PreferencesDialog::chosen, this, &PreferenceTools::apply);
    }
    m_dialog->open();
}

void PreferenceTools::apply(const PreferenceEdit &edit)
{
    const DrawingChoice newDrawing = m_kept.newDrawing;
    m_kept = edit.user;
    m_kept.newDrawing = edit.isForNewDrawings ? edit.drawing : newDrawing;
    m_kept.keep();
    setNewDrawing(m_kept.newDrawing);
    m_reach.snap.setChoice(edit.snap);
    if (edit.language != m_reach.language.choice())
        m_reach.language.choose(edit.language);
    changeDrawing(edit.drawing);
    hold();
    Q_EMIT applied();
}

void PreferenceTools::keepGridShown(bool isShown)
{
    m_kept.isGridShown = isShown;
    m_kept.keep();
}

void PreferenceTools::hold()
{
    applyTheme(m_kept.theme);
    units::choose(m_kept.unit, m_kept.isYUp);
    m_reach.rulers.setUnitMm(units::unitMm());
    m_reach.rulers.vertical().setDownward(!m_kept.isYUp);
    m_reach.grid.setVisible(m_kept.isGridShown);
    m_reach.grid.setFixedMm(m_kept.gridMm);
    m_reach.snap.setGridMm(m_kept.gridMm);
    m_reach.tools.setToolKept(m_kept.isToolKept);
    m_reach.actions.setNewShape(m_kept.newShape);
}

void PreferenceTools::changeDrawing(const DrawingChoice &choice)
{
    if (choice == drawingChoice(m_reach.document))
        return;
    m_reach.document.undoStack()->push(new DrawingChoiceCommand(
        m_reach.document, choice,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change field or curves"))));
}

void PreferenceTools::setNewDrawing(const DrawingChoice &choice)
{
    hostkit::DrawingSetup setup = m_reach.files.newSetup();
    setup.workAreaMm = choice.fieldMm;
    setup.curveToleranceMm = choice.curveToleranceMm;
    m_reach.files.setNewSetup(setup);
}

} // namespace studio
