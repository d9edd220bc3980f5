#pragma once

#include <QtWidgets/QWidget>

class QCheckBox;

/** A check box that fills its cell and says in words what it is set to. */
class QtBoolEdit : public QWidget
{
    Q_OBJECT

public:
    explicit QtBoolEdit(QWidget *parent = nullptr);

    bool isChecked() const;
    void setChecked(bool checked);

Q_SIGNALS:
    void toggled(bool checked);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void showText();

    QCheckBox *const m_box; ///< a child
};
