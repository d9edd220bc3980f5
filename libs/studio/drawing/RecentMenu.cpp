#include <studio/drawing/RecentMenu.h>

#include <studio/drawing/RecentDrawings.h>

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>

namespace studio {

RecentMenu::RecentMenu(QWidget *parent) : QMenu(parent)
{
    setObjectName(QStringLiteral("recentMenu"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentMenu::refresh);
    refresh();
}

void RecentMenu::changeEvent(QEvent *event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}

void RecentMenu::refresh()
{
    clear();
    setTitle(tr("Open &recent"));
    const QStringList paths = RecentDrawings::paths();
    for (int i = 0; i < paths.size(); ++i)
        addPath(paths[i], i + 1);
    addSeparator();
    QAction *forget = addAction(tr("&Clear list"));
    forget->setObjectName(QStringLiteral("recent.clear"));
    forget->setEnabled(!paths.isEmpty());
    connect(forget, &QAction::triggered, this, &RecentDrawings::clear);
}

void RecentMenu::addPath(const QString &path, int number)
{
    // An ampersand in a name is no mnemonic.
    QString name = QFileInfo(path).fileName();
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const QString digit = number < 10 ? QStringLiteral("&%1").arg(number) : QString::number(number);
    QAction *action = addAction(digit + QLatin1Char(' ') + name);
    action->setToolTip(QDir::toNativeSeparators(path));
    action->setData(path);
    connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
}

} // namespace studio
