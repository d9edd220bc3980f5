#include <studio/LanguageMenu.h>

#include <studio/Language.h>

#include <QtCore/QEvent>
#include <QtWidgets/QActionGroup>

namespace studio {

LanguageMenu::LanguageMenu(Language &changed, QWidget *parent)
    : QMenu(parent), language(changed), group(new QActionGroup(this)),
      systemAction(add(QString(), "language.system", LanguageChoice::System))
{
    setObjectName(QStringLiteral("languageMenu"));
    add(QStringLiteral("English"), "language.english", LanguageChoice::English);
    add(QStringLiteral("中文"), "language.chinese", LanguageChoice::Chinese);
    retranslate();
}

QAction *LanguageMenu::add(const QString &text, const char *name, LanguageChoice choice)
{
    QAction *action = addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setCheckable(true);
    action->setChecked(choice == language.choice());
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, choice] { language.choose(choice); });
    return action;
}

void LanguageMenu::changeEvent(QEvent *event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void LanguageMenu::retranslate()
{
    setTitle(tr("&Language"));
    systemAction->setText(tr("&System language"));
}

} // namespace studio
