#include <studio/panel/HatchList.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace studio {

namespace {

constexpr int kShownRows = 4;
constexpr int kRowMargin = 4;

} // namespace

HatchList::HatchList(QWidget *parent)
    : QWidget(parent), m_rows(new QListWidget(this)), m_add(newButton("panel.hatchAdd")),
      m_remove(newButton("panel.hatchRemove")), m_up(newButton("panel.hatchUp")),
      m_down(newButton("panel.hatchDown"))
{
    m_rows->setObjectName(QStringLiteral("panel.hatches"));
    m_rows->setMaximumHeight(kShownRows * (m_rows->fontMetrics().height() + kRowMargin));
    m_up->setArrowType(Qt::UpArrow);
    m_down->setArrowType(Qt::DownArrow);
    m_add->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_remove->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addWidget(m_up);
    buttons->addWidget(m_down);
    buttons->addStretch(1);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_rows);
    all->addLayout(buttons);
    connect(m_rows, &QListWidget::currentRowChanged, this, [this](int row) {
        m_current = std::max(0, row);
        Q_EMIT picked();
    });
    connect(m_add, &QToolButton::clicked, this, &HatchList::addAsked);
    connect(m_remove, &QToolButton::clicked, this, &HatchList::removeAsked);
    connect(m_up, &QToolButton::clicked, this, [this] { Q_EMIT moveAsked(-1); });
    connect(m_down, &QToolButton::clicked, this, [this] { Q_EMIT moveAsked(1); });
    retranslate();
}

QToolButton *HatchList::newButton(const char *name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void HatchList::showHatches(const QStringList &rows, bool canAdd)
{
    const QSignalBlocker quiet(m_rows);
    m_current = std::max(0, std::min(m_current, rows.size() - 1));
    // Row by row, so that the list neither jumps nor loses the keyboard.
    while (m_rows->count() > rows.size())
        delete m_rows->takeItem(m_rows->count() - 1);
    for (int i = 0; i < rows.size(); ++i) {
        if (i < m_rows->count())
            m_rows->item(i)->setText(rows[i]);
        else
            m_rows->addItem(rows[i]);
    }
    m_rows->setCurrentRow(rows.isEmpty() ? -1 : m_current);
    m_rows->setVisible(rows.size() > 1);
    enableButtons(canAdd);
}

void HatchList::setCurrent(int row) { m_current = std::max(0, row); }

void HatchList::enableButtons(bool canAdd)
{
    const int count = m_rows->count();
    m_add->setEnabled(canAdd);
    m_remove->setEnabled(count > 0);
    m_up->setEnabled(count > 1 && m_current > 0);
    m_down->setEnabled(m_current + 1 < count);
}

void HatchList::retranslate()
{
    m_rows->setAccessibleName(tr("Hatches"));
    m_add->setText(tr("Add hatch"));
    m_add->setToolTip(tr("A further hatch over the same shape, up to eight"));
    m_remove->setText(tr("Remove"));
    m_remove->setToolTip(tr("Takes away the hatch that the fields show"));
    m_up->setAccessibleName(tr("Up"));
    m_up->setToolTip(tr("Marks this hatch earlier"));
    m_down->setAccessibleName(tr("Down"));
    m_down->setToolTip(tr("Marks this hatch later"));
}

} // namespace studio
