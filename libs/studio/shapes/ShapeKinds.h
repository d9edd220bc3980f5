#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace studio {

/**
 * What the studio says about a kind of shape. A kind that people can create is one entry here and
 * an icon of that name.
 */
struct ShapeKind
{
    ShapeType type;
    const char *name;     ///< for people; context "studio::ShapeKinds"
    const char *creation; ///< text of the undo step; context "studio::UndoTexts"

    // How it is created; empty for what comes by other ways. Context of the texts: "studio".
    const char *command; ///< id
    const char *menuText;
    const char *toolTip;
    const char *icon;
    const char *shortcut; ///< of the tool that draws it

    const char *tool = ""; ///< id of the tool that draws it with the mouse; empty: none does
};

/** All kinds that the studio knows, in the order of the menu. */
const QVector<ShapeKind> &shapeKinds();

/** The entry of a kind; that of a kind without one speaks of a shape. */
const ShapeKind &shapeKind(ShapeType type);

/** What people call a kind, in the language of the program. */
QString kindName(ShapeType type);

} // namespace studio
