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

VariantPanel::VariantPanel(QWidget *parent) : QWidget(parent), forms(new QStackedWidget(this))
{
    auto *left = new QVBoxLayout;
    buildList(*left);
    buildPreview(*left);
    forms->addWidget(new QWidget(forms));
    for (SegmentForm *form : newSegmentForms(forms)) {
        forms->addWidget(form);
        connect(form, &SegmentForm::changed, this, [this, form] { edit(*form); });
    }
    auto *upper = new QHBoxLayout;
    upper->addLayout(left, 2);
    upper->addWidget(forms, 3);
    problem = new QLabel(this);
    problem->setObjectName(QStringLiteral("variantProblem"));
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(upper, 1);
    layout->addWidget(problem);
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
    list = newList("segments", kListLines, this);
    connect(list, &QListWidget::currentRowChanged, this, &VariantPanel::showChosen);

    addButton = newButton("addSegment", tr("&Add"), tr("Add a segment at the end"));
    addButton->setPopupMode(QToolButton::InstantPopup);
    auto *kinds = new QMenu(addButton);
    const QString texts[] = {tr("&Text"), tr("&Counter"), tr("&Date and time"), tr("&List file")};
    for (int kind = 0; kind < 4; ++kind)
        connect(kinds->addAction(texts[kind]), &QAction::triggered, this,
                [this, kind] { add(kind); });
    addButton->setMenu(kinds);
    removeButton = newButton("removeSegment", tr("&Remove"), tr("Remove the chosen segment"));
    connect(removeButton, &QToolButton::clicked, this, &VariantPanel::removeChosen);
    upButton = newButton("segmentUp", QStringLiteral("↑"), tr("Move the chosen segment up"));
    connect(upButton, &QToolButton::clicked, this, [this] { moveChosen(-1); });
    downButton = newButton("segmentDown", QStringLiteral("↓"), tr("Move the chosen segment down"));
    connect(downButton, &QToolButton::clicked, this, [this] { moveChosen(1); });

    auto *buttons = new QHBoxLayout;
    for (QToolButton *button : {addButton, removeButton, upButton, downButton})
        buttons->addWidget(button);
    buttons->addStretch(1);
    layout.addWidget(new QLabel(tr("Segments, strung together"), this));
    layout.addWidget(list);
    layout.addLayout(buttons);
}

void VariantPanel::buildPreview(QVBoxLayout &layout)
{
    preview = newList("preview", kPreviewParts, this);
    preview->setSelectionMode(QAbstractItemView::NoSelection);
    preview->setFocusPolicy(Qt::NoFocus);
    layout.addWidget(new QLabel(tr("This part and the next ones"), this));
    layout.addWidget(preview);
}

void VariantPanel::showSegments(const Segments &segments)
{
    parts = segments;
    fillList(0);
    showPreview();
}

void VariantPanel::showProblem(const QString &errorText)
{
    const bool lacksFile = std::any_of(parts.begin(), parts.end(), [](const Segment &segment) {
        const auto *rows = std::get_if<ZTTextFileSegment>(&segment);
        return rows != nullptr && rows->path.isEmpty();
    });
    problem->setText(lacksFile ? tr("Choose a list file.") : errorText);
    problem->setVisible(!problem->text().isEmpty());
}

int VariantPanel::chosen() const { return list->currentRow(); }

void VariantPanel::add(int kind)
{
    if (parts.size() >= ZTVariantText::kMaxSegments)
        return;
    parts.append(newSegment(kind));
    fillList(parts.size() - 1);
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::removeChosen()
{
    const int row = chosen();
    if (row < 0)
        return;
    parts.remove(row);
    fillList(qMin(row, parts.size() - 1));
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::moveChosen(int by)
{
    const int row = chosen();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= parts.size())
        return;
    parts.move(row, to);
    fillList(to);
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::edit(const SegmentForm &form)
{
    const int row = chosen();
    if (row < 0)
        return;
    parts[row] = form.segment();
    list->item(row)->setText(describe(parts[row]));
    showPreview();
    Q_EMIT changed();
}

void VariantPanel::fillList(int row)
{
    {
        const QSignalBlocker quiet(list);
        list->clear();
        for (const Segment &segment : qAsConst(parts))
            list->addItem(describe(segment));
        list->setCurrentRow(row);
    }
    showChosen();
}

void VariantPanel::showChosen()
{
    const int row = chosen();
    removeButton->setEnabled(row >= 0);
    upButton->setEnabled(row > 0);
    downButton->setEnabled(row >= 0 && row + 1 < parts.size());
    addButton->setEnabled(parts.size() < ZTVariantText::kMaxSegments);
    if (row < 0) {
        forms->setCurrentIndex(0);
        return;
    }
    forms->setCurrentIndex(1 + int(parts[row].index()));
    static_cast<SegmentForm *>(forms->currentWidget())->showSegment(parts[row]);
}

void VariantPanel::showPreview()
{
    const ZTVariantText text = variantTextOf(parts);
    preview->clear();
    const QStringList values = parts.isEmpty() ? QStringList() : text.preview(kPreviewParts);
    for (const QString &value : values)
        preview->addItem(onOneLine(value));
    if (!values.isEmpty()) {
        QFont ofThisPart = preview->font();
        ofThisPart.setBold(true);
        preview->item(0)->setFont(ofThisPart);
    }
    showProblem(text.errorText());
}

} // namespace studio
