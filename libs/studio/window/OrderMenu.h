#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QMenu>

QT_BEGIN_NAMESPACE
class QActionGroup;
QT_END_NAMESPACE

namespace studio {

/**
 * Lets the user choose the order in which shapes are marked. The choice is remembered, and holds
 * for the whole process from the construction of the menu on.
 */
class OrderMenu : public QMenu
{
    Q_OBJECT

public:
    explicit OrderMenu(QWidget *parent = nullptr);

    void restore(); ///< goes back to the remembered order
    void follow();  ///< shows the order that holds; a drawing may have brought its own

Q_SIGNALS:
    void changed(); ///< by the user

protected:
    void changeEvent(QEvent *event) override;

private:
    void add(EShapeSortType order);
    void retranslate();
    void choose(const QAction *action);

    QActionGroup *m_group;
};

} // namespace studio
