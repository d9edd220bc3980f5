#pragma once

#include <studio/edit/MatrixPreview.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QFormLayout;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace studio {

class DocumentActions;
class MeasureBox;

/**
 * Repeats the selected shapes in rows and columns. Stays open beside the drawing and shows at once
 * where the copies would stand; only "Create" makes them, as one undo step. Closing it leaves the
 * drawing as it is.
 */
class MatrixDialog : public QDialog
{
    Q_OBJECT

public:
    /** `document` and `actions` are borrowed and outlive the dialog. */
    MatrixDialog(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent);
    ~MatrixDialog() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    MeasureBox *addCount(const QString &name, int value);
    MeasureBox *addGap(const QString &name);
    void watch(MeasureBox &box, const QString &name, double first);
    QLabel *addRow(QFormLayout &form, QWidget *box);
    void layOut();
    void retranslate();
    void follow();
    void refresh();
    void create();
    MatrixGrid grid() const;
    bool isNumberable() const;
    QString hint(const ShapeItems &sources, const MatrixGrid &grid) const;

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    MeasureBox *m_rowsBox;
    MeasureBox *m_columnsBox;
    MeasureBox *m_acrossBox;
    MeasureBox *m_downBox;
    QCheckBox *m_numberBox; ///< shown for what has a variant text
    QLabel *m_rowsLabel = nullptr;
    QLabel *m_columnsLabel = nullptr;
    QLabel *m_acrossLabel = nullptr;
    QLabel *m_downLabel = nullptr;
    QLabel *m_hintLabel;
    QPushButton *m_createButton;
    QPointer<MatrixPreview> m_preview; ///< an item of the scene, while the dialog is open
    bool m_hasBeenShown = false;
    QMetaObject::Connection m_following; ///< moves of the source
};

} // namespace studio
