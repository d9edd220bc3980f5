#include <studio/window/OrderMenu.h>

#include <QtCore/QEvent>
#include <QtCore/QSettings>
#include <QtWidgets/QActionGroup>

namespace studio {

namespace {

const QString kOrderKey = QStringLiteral("marking/order");

/** The remembered order; none if there is none, or one of another version of the program. */
int rememberedOrder()
{
    const int order = QSettings().value(kOrderKey, 0).toInt();
    return order >= int(EShapeSortType::ShapeSortNone) &&
                   order <= int(EShapeSortType::ShapeSortYFromMax)
               ? order
               : 0;
}

} // namespace

OrderMenu::OrderMenu(QWidget *parent) : QMenu(parent)
{
    setObjectName(QStringLiteral("orderMenu"));
    m_group = new QActionGroup(this);
    add(EShapeSortType::ShapeSortNone);
    add(EShapeSortType::ShapeSortNearest);
    add(EShapeSortType::ShapeSortXFromMin);
    add(EShapeSortType::ShapeSortXFromMax);
    add(EShapeSortType::ShapeSortYFromMin);
    add(EShapeSortType::ShapeSortYFromMax);
    connect(m_group, &QActionGroup::triggered, this, &OrderMenu::choose);
    retranslate();
    restore();
}

void OrderMenu::restore()
{
    ZTPointSort::getInstance()->setShapeMarkSort(static_cast<EShapeSortType>(rememberedOrder()));
    follow();
}

void OrderMenu::follow()
{
    const int order = static_cast<int>(ZTPointSort::getInstance()->getShapeMarkSort());
    m_group->actions().at(qBound(0, order, m_group->actions().size() - 1))->setChecked(true);
}

void OrderMenu::add(EShapeSortType order)
{
    QAction *action = addAction(QString());
    action->setCheckable(true);
    action->setData(static_cast<int>(order));
    m_group->addAction(action);
}

void OrderMenu::changeEvent(QEvent *event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void OrderMenu::retranslate()
{
    const QStringList texts = {tr("As &stacked"),    tr("&Nearest next"),  tr("&Left to right"),
                               tr("&Right to left"), tr("&Top to bottom"), tr("&Bottom to top")};
    setTitle(tr("Marking &order"));
    for (int i = 0; i < texts.size(); ++i)
        m_group->actions().at(i)->setText(texts.at(i));
}

void OrderMenu::choose(const QAction *action)
{
    const int order = action->data().toInt();
    ZTPointSort::getInstance()->setShapeMarkSort(static_cast<EShapeSortType>(order));
    QSettings().setValue(kOrderKey, order);
    Q_EMIT changed();
}

} // namespace studio
