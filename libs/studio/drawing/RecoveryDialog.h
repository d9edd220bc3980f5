#pragma once

#include <studio/drawing/RecoveryStore.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

namespace studio {

/**
 * Offers drawings that were left behind: to recover one, to discard some, or to leave them for
 * later. As long as it is open no other studio offers them.
 */
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    RecoveryDialog(const QVector<RecoveryEntry> &entries, QWidget *parent);

Q_SIGNALS:
    /** The user wants this one; the dialog closes. */
    void chosen(const studio::RecoveryEntry &entry);

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void fill();
    void retranslate();
    void refresh();
    void recoverCurrent();
    void askToDiscard();
    void discardSelected();
    static QString describe(const RecoveryEntry &entry);

    QVector<RecoveryEntry> m_entries;
    QLabel *m_hintLabel;
    QTreeWidget *m_list;
    QPushButton *m_recoverButton;
    QPushButton *m_discardButton;
    QPushButton *m_laterButton;
};

} // namespace studio
