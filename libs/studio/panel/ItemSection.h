#pragma once

#include <studio/panel/PanelSection.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

namespace hostkit {
struct ItemExtras;
}

namespace studio {

class DocumentActions;

/** Name and pen of what is selected, and whether it is marked, locked or hidden. */
class ItemSection : public PanelSection
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    ItemSection(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void retranslate() override;

private:
    QCheckBox *newFlag(const char *name, bool hostkit::ItemExtras::*flag, const char *undoSource);
    static QString nameOfUnnamed(const ShapeItems &selected);
    void showName(const ShapeItems &selected);
    void takeName();

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    QLabel *m_nameLabel;
    QLineEdit *m_name;
    QLabel *m_penLabel;
    QComboBox *m_pen;
    QCheckBox *m_marked;
    QCheckBox *m_locked;
    QCheckBox *m_hidden;
    QString m_shownName;
};

} // namespace studio
