#include <studio/window/LanguageMenu.h>

#include <studio/program/Language.h>

#include <QtCore/QEvent>
#include <QtWidgets/QActionGroup>

namespace studio {

LanguageMenu::LanguageMenu(Language &changed, QWidget *parent)
    : QMenu(parent), m_language(changed), m_group(new QActionGroup(this)),
      m_systemAction(add(QString(), "language.system", LanguageChoice::System))
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
    action->setChecked(choice == m_language.choice());
    m_group->addAction(action);
    connect(action, &QAction::triggered, this, [this, choice] { m_language.choose(choice); });
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
    m_systemAction->setText(tr("&System language"));
}

} // namespace studio
