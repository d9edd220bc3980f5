#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QListWidget;
class QToolButton;
QT_END_NAMESPACE

namespace studio {

/**
 * The hatches of what is selected, a row each, and the buttons that add, take away and move them.
 * The rows show once there are two: a single hatch is edited without a look at a list.
 */
class HatchList : public QWidget
{
    Q_OBJECT

public:
    explicit HatchList(QWidget *parent = nullptr);

    /** Shows these hatches; the row that is edited stays where it was, as far as there is one. */
    void showHatches(const QStringList &rows, bool canAdd);

    /** The hatch that is edited, from 0; 0 also where there is none. */
    int current() const { return m_current; }

    void setCurrent(int row);
    void retranslate();

Q_SIGNALS:
    /** Another hatch is to be edited. */
    void picked();
    void addAsked();
    void removeAsked();
    /** The edited hatch is to change places with the one above (-1) or below (1). */
    void moveAsked(int by);

private:
    QToolButton *newButton(const char *name);
    void enableButtons(bool canAdd);

    QListWidget *m_rows; ///< child, as all below
    QToolButton *m_add;
    QToolButton *m_remove;
    QToolButton *m_up;
    QToolButton *m_down;
    int m_current = 0;
};

} // namespace studio
