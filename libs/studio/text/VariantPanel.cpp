#include <studio/text/VariantPanel.h>

#include <studio/text/SegmentForm.h>

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace studio {

namespace {

constexpr int kPreviewParts = 10;
constexpr int kListLines = 6;
constexpr int kListWidth = 13; ///< in lines

QListWidget *newList(const char *name, int lines, QWidget *parent)
{
    auto *list = new QListWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    const int line = list->fontMetrics().height();
    list->setMinimumSize(kListWidth * line, lines * (line + 2));
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    list->setUniformItemSizes(true);
    return list;
}

} // namespace

VariantPanel::VariantPanel(QWidget *parent) : QWidget(parent), m_forms(new QStackedWidget(this))
{
    auto *left = new QVBoxLayout;
    buildList(*left);
    buildPreview(*left);
    m_forms->addWidget(new QWidget(m_forms));
    for (SegmentForm *form : newSegmentForms(m_forms)) {
        m_forms->addWidget(form);
        connect(form, &SegmentForm::changed, this, [this, form] { edit(*form); });
    }
    auto *upper = new QHBoxLayout;
    upper->addLayout(left, 2);
    upper->addWidget(m_forms, 3);
    m_problem = new QLabel(this);
    m_problem->setObjectName(QStringLiteral("variantProblem"));
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(upper, 1);
    layout->addWidget(m_problem);
    showSegments({});
}

QToolButton *VariantPanel::newButton(const char *name, const QString &text, const QString &toolTip)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(toolTip);
    return button;
}

void VariantPanel::buildList(QVBoxLayout &layout)
{
    m_list = newList("segments", kListLines, this);
    connect(m_list, &QListWidget::currentRowChanged, this, &VariantPanel::showChosen);

    m_addButton = newButton("addSegment", tr("&Add"), tr("Add a segment at the end"));
    m_addButton->setPopupMode(QToolButton::InstantPopup);
    auto *kinds = new QMenu(m_addButton);
    const QString texts[] = {tr("&Text"), tr("&Counter"), tr("&Date and time"), tr("&List file")};
    for (int kind = 0; kind < 4; ++kind)
        connect(kinds->addAction(texts[kind]), &QAction::triggered, this,
                [this, kind] { add(kind); });
    m_addButton->setMenu(kinds);
    m_removeButton = newButton("removeSegment", tr("&Remove"), tr("Remove the chosen segment"));
    connect(m_removeButton, &QToolButton::clicked, this, &VariantPanel::removeChosen);
    m_upButton = newButton("segmentUp", QStringLiteral("↑"), tr("Move the chosen segment up"));
    connect(m_upButton, &QToolButton::clicked, this, [this] { moveChosen(-1); });
    m_downButton =
        newButton("segmentDown", QStringLiteral("↓"), tr("Move the chosen segment down"));
    connect(m_downButton, &QToolButton::clicked, this, [this] { moveChosen(1); });

    auto *buttons = new QHBoxLayout;
    for (QToolButton *button : {m_addButton, m_removeButton, m_upButton, m_downButton})
        buttons->addWidget(button);
    buttons->addStretch(1);
    layout.addWidget(new QLabel(tr("Segments, strung together"), this));
    layout.addWidget(m_list);
    layout.addLayout(buttons);
}

void VariantPanel::buildPreview(QVBoxLayout &layout)
{
    m_preview = newList("preview", kPreviewParts, this);
    m_preview->setSelectionMode(QAbstractItemView::NoSelection);
    m_preview->setFocusPolicy(Qt::NoFocus);
    layout.addWidget(new QLabel(tr("This part and the next ones"), this));
    layout.addWidget(m_preview);
}

void VariantPanel::showSegments(const Segments &segments)
{
    m_parts = segments;
    fillList(0);
    showPreview();
}

void VariantPanel::setValuesPerPart(int values)
{
    m_valuesPerPart = values;
    showPreview();
}

void VariantPanel::showProblem(const QString &errorText)
{
    const bool lacksFile = std::any_of(m_parts.begin(), m_parts.end(), [](const Segment &segment) {
        const auto *rows = std::get_if<ZTTextFileSegment>(&segment);
        return rows != nullptr && rows->path.isEmpty();
    });
    m_problem->setText(lacksFile ? tr("Choose a list file.") : errorText);
    m_problem->setVisible(!m_problem->text().isEmpty());
}

int VariantPanel::chosen() const { return m_list->currentRow(); }

void VariantPanel::add(int kind)
{
    if (m_parts.size() >= ZTVariantText::kMaxSegments)
        return;
    m_parts.append(newSegment(kind));
    fillList(m_parts.size() - 1);
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::removeChosen()
{
    const int row = chosen();
    if (row < 0)
        return;
    m_parts.remove(row);
    fillList(qMin(row, m_parts.size() - 1));
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::moveChosen(int by)
{
    const int row = chosen();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= m_parts.size())
        return;
    m_parts.move(row, to);
    fillList(to);
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::edit(const SegmentForm &form)
{
    const int row = chosen();
    if (row < 0)
        return;
    m_parts[row] = form.segment();
    m_list->item(row)->setText(describe(m_parts[row]));
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::fillList(int row)
{
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Segment &segment : qAsConst(m_parts))
            m_list->addItem(describe(segment));
        m_list->setCurrentRow(row);
    }
    showChosen();
}

void VariantPanel::showChosen()
{
    const int row = chosen();
    m_removeButton->setEnabled(row >= 0);
    m_upButton->setEnabled(row > 0);
    m_downButton->setEnabled(row >= 0 && row + 1 < m_parts.size());
    m_addButton->setEnabled(m_parts.size() < ZTVariantText::kMaxSegments);
    if (row < 0) {
        m_forms->setCurrentIndex(0);
        return;
    }
    m_forms->setCurrentIndex(1 + int(m_parts[row].index()));
    static_cast<SegmentForm *>(m_forms->currentWidget())->showSegment(m_parts[row]);
}

void VariantPanel::showPreview()
{
    const ZTVariantText text = variantTextOf(m_parts);
    m_preview->clear();
    const QStringList values =
        m_parts.isEmpty() ? QStringList() : partPreview(text, m_valuesPerPart, kPreviewParts);
    for (const QString &value : values)
        m_preview->addItem(onOneLine(value));
    if (!values.isEmpty()) {
        QFont ofThisPart = m_preview->font();
        ofThisPart.setBold(true);
        m_preview->item(0)->setFont(ofThisPart);
    }
    showProblem(text.errorText());
}

} // namespace studio
