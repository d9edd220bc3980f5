#pragma once

#include <studio/text/VariantParts.h>

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QListWidget;
class QStackedWidget;
class QToolButton;
class QVBoxLayout;
QT_END_NAMESPACE

namespace studio {

class SegmentForm;

/**
 * Composes a variant text: its segments one below the other, the settings of the chosen one beside
 * them, and the values of the next parts. Nothing here moves a counter or a list on.
 */
class VariantPanel : public QWidget
{
    Q_OBJECT

public:
    explicit VariantPanel(QWidget *parent = nullptr);

    /** Values that a part uses up where shapes share a counter; the preview passes over them. */
    void setValuesPerPart(int values);

    /** Shows segments as they were before the present part, without telling. */
    void showSegments(const Segments &segments);
    const Segments &segments() const { return m_parts; }

Q_SIGNALS:
    void changed(); ///< by the user

private:
    void buildList(QVBoxLayout &layout);
    void buildPreview(QVBoxLayout &layout);
    QToolButton *newButton(const char *name, const QString &text, const QString &toolTip);
    void add(int kind);
    void removeChosen();
    void moveChosen(int by);
    void edit(const SegmentForm &form);
    void fillList(int chosen);
    void showChosen();
    void showPreview();
    void showProblem(const QString &errorText);
    int chosen() const;

    Segments m_parts;
    int m_valuesPerPart = 1;
    QListWidget *m_list = nullptr;
    QToolButton *m_addButton = nullptr;
    QToolButton *m_removeButton = nullptr;
    QToolButton *m_upButton = nullptr;
    QToolButton *m_downButton = nullptr;
    QStackedWidget *m_forms = nullptr; ///< by kind of segment, behind an empty one
    QListWidget *m_preview = nullptr;
    QLabel *m_problem = nullptr;
};

} // namespace studio
