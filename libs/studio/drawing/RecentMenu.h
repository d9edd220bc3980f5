#pragma once

#include <QtWidgets/QMenu>

namespace studio {

/** Offers the drawings that were used last, and to forget them. */
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    explicit RecentMenu(QWidget *parent = nullptr);

    /** Lists the drawings as they are remembered now; also done whenever the menu opens. */
    void refresh();

Q_SIGNALS:
    void chosen(const QString &path);

protected:
    void changeEvent(QEvent *event) override;

private:
    void addPath(const QString &path, int number);
};

} // namespace studio
