#include <studio/OrderMenu.h>

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

OrderMenu::OrderMenu(QWidget *parent) : QMenu(tr("Marking &order"), parent)
{
    setObjectName(QStringLiteral("orderMenu"));
    group = new QActionGroup(this);
    add(tr("As &stacked"), EShapeSortType::ShapeSortNone);
    add(tr("&Nearest next"), EShapeSortType::ShapeSortNearest);
    add(tr("&Left to right"), EShapeSortType::ShapeSortXFromMin);
    add(tr("&Right to left"), EShapeSortType::ShapeSortXFromMax);
    add(tr("&Top to bottom"), EShapeSortType::ShapeSortYFromMin);
    add(tr("&Bottom to top"), EShapeSortType::ShapeSortYFromMax);
    connect(group, &QActionGroup::triggered, this, &OrderMenu::choose);
    const int order = rememberedOrder();
    group->actions().at(order)->setChecked(true);
    ZTPointSort::getInstance()->setShapeMarkSort(static_cast<EShapeSortType>(order));
}

void OrderMenu::add(const QString &text, EShapeSortType order)
{
    QAction *action = addAction(text);
    action->setCheckable(true);
    action->setData(static_cast<int>(order));
    group->addAction(action);
}

void OrderMenu::choose(const QAction *action)
{
    const int order = action->data().toInt();
    ZTPointSort::getInstance()->setShapeMarkSort(static_cast<EShapeSortType>(order));
    QSettings().setValue(kOrderKey, order);
}

} // namespace studio
