#pragma once

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QTableWidget;
QT_END_NAMESPACE

namespace studio {

/** All shortcuts, as the table of commands has them, with a field that searches them. */
class ShortcutSheet : public QDialog
{
    Q_OBJECT

public:
    explicit ShortcutSheet(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fill();
    void filter(const QString &words);

    QLabel *m_wordsLabel; ///< child, as all below
    QLineEdit *m_words;
    QTableWidget *m_table;
};

} // namespace studio
