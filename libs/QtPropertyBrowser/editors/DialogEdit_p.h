#pragma once

#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

class QLabel;
class QToolButton;

/** A picture and a text of a value, and a button that opens a dialog for it. */
class DialogEdit : public QWidget
{
    Q_OBJECT

public:
    explicit DialogEdit(QWidget *parent = nullptr);

    void setContent(const QIcon &icon, const QString &text);

Q_SIGNALS:
    void dialogWanted();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLabel *const m_picture; ///< a child, like the others
    QLabel *const m_words;
    QToolButton *const m_button;
};
