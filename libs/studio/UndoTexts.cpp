#include <studio/UndoTexts.h>

#include <QtCore/QCoreApplication>

namespace studio {

namespace {

struct UndoTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::UndoTexts)
};

} // namespace

QString readableUndoText(const QString &text)
{
    if (text == QLatin1String("release item setPos"))
        return UndoTexts::tr("Move");
    if (text == QLatin1String("item resize"))
        return UndoTexts::tr("Resize");
    if (text == QLatin1String("item setPos"))
        return UndoTexts::tr("Align");
    return text;
}

} // namespace studio
