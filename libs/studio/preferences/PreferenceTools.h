#pragma once

#include <studio/preferences/PreferencesDialog.h>

#include <QtCore/QPointer>

namespace hostkit {
class ViewRulers;
}

namespace studio {

class DocumentActions;
class DrawingFiles;
class DrawingTools;
class GridItem;

/** Lets the preferences hold in a window, and the dialog change them. */
class PreferenceTools : public QObject
{
    Q_OBJECT

public:
    /** What preferences reach. All are borrowed and outlive this. */
    struct Reach
    {
        ZTGraphicsDocument &document;
        Language &language;
        DrawingFiles &files;
        DocumentActions &actions;
        DrawingTools &tools;
        SnapTools &snap;
        GridItem &grid;
        hostkit::ViewRulers &rulers;
        QWidget &window;
    };

    /** Lets the kept preferences hold, and the empty drawing of the window be as new ones are. */
    explicit PreferenceTools(const Reach &reach);

    const Preferences &preferences() const { return m_kept; }

    void showDialog();

    /** Lets an edit hold and keeps it; what belongs to the drawing is one undo step. */
    void apply(const PreferenceEdit &edit);

    /** The grid was switched by other means; keeps it. */
    void keepGridShown(bool isShown);

Q_SIGNALS:
    void applied(); ///< commands and recovery files have to follow

private:
    void hold();
    void changeDrawing(const DrawingChoice &choice);
    void setNewDrawing(const DrawingChoice &choice);

    Reach m_reach;
    Preferences m_kept;
    QPointer<PreferencesDialog> m_dialog;
};

} // namespace studio
