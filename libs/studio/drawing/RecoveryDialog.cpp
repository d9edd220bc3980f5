#include <studio/drawing/RecoveryDialog.h>

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace studio {

namespace {

constexpr int kPictureSide = 96;
constexpr int kEntryRole = Qt::UserRole;
const QSize kFirstSize(560, 380);

/** The picture on a square of paper, so that all rows are alike. */
QIcon pictureOf(const QImage &preview)
{
    QPixmap paper(kPictureSide, kPictureSide);
    paper.fill(Qt::white);
    if (!preview.isNull()) {
        const QImage small = preview.scaled(kPictureSide, kPictureSide, Qt::KeepAspectRatio,
                                            Qt::SmoothTransformation);
        QPainter painter(&paper);
        painter.drawImage((kPictureSide - small.width()) / 2, (kPictureSide - small.height()) / 2,
                          small);
    }
    return paper;
}

} // namespace

RecoveryDialog::RecoveryDialog(const QVector<RecoveryEntry> &found, QWidget *parent)
    : QDialog(parent), entries(found), hintLabel(new QLabel(this)), list(new QTreeWidget(this)),
      recoverButton(new QPushButton(this)), discardButton(new QPushButton(this)),
      laterButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("recoveryDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(kFirstSize);
    layOut();
    fill();
    retranslate();
    refresh();
    connect(recoverButton, &QPushButton::clicked, this, &RecoveryDialog::recoverCurrent);
    connect(discardButton, &QPushButton::clicked, this, &RecoveryDialog::askToDiscard);
    connect(laterButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(list, &QTreeWidget::itemSelectionChanged, this, &RecoveryDialog::refresh);
    connect(list, &QTreeWidget::itemActivated, this, &RecoveryDialog::recoverCurrent);
}

void RecoveryDialog::layOut()
{
    hintLabel->setWordWrap(true);
    list->setObjectName(QStringLiteral("recoveryList"));
    list->setRootIsDecorated(false);
    list->setHeaderHidden(true);
    list->setIconSize({kPictureSide, kPictureSide});
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    recoverButton->setObjectName(QStringLiteral("recover"));
    recoverButton->setDefault(true);
    discardButton->setObjectName(QStringLiteral("discard"));
    laterButton->setObjectName(QStringLiteral("later"));

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(recoverButton, QDialogButtonBox::AcceptRole);
    buttons->addButton(discardButton, QDialogButtonBox::DestructiveRole);
    buttons->addButton(laterButton, QDialogButtonBox::RejectRole);
    auto *column = new QVBoxLayout(this);
    column->addWidget(hintLabel);
    column->addWidget(list);
    column->addWidget(buttons);
}

void RecoveryDialog::fill()
{
    for (int i = 0; i < entries.size(); ++i) {
        auto *row = new QTreeWidgetItem(list);
        row->setIcon(0, pictureOf(entries[i].preview));
        row->setData(0, kEntryRole, i);
    }
    if (!entries.isEmpty())
        list->setCurrentItem(list->topLevelItem(0));
}

void RecoveryDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RecoveryDialog::retranslate()
{
    setWindowTitle(tr("Recover drawings"));
    hintLabel->setText(entries.isEmpty()
                           ? tr("There is nothing to recover: every drawing was saved or let go.")
                           : tr("The studio ended without saving these drawings. What is left for "
                                "later is offered again."));
    recoverButton->setText(tr("&Recover"));
    discardButton->setText(tr("&Discard..."));
    laterButton->setText(entries.isEmpty() ? tr("&Close") : tr("&Later"));
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = list->topLevelItem(i);
        row->setText(0, describe(entries[row->data(0, kEntryRole).toInt()]));
    }
}

QString RecoveryDialog::describe(const RecoveryEntry &entry)
{
    const QString when = QLocale().toString(entry.savedAt.toLocalTime(), QLocale::ShortFormat);
    QString text =
        entry.name() + QLatin1Char('\n') + tr("%1, shapes: %L2").arg(when).arg(entry.shapes);
    if (!entry.origin.path.isEmpty())
        text += QLatin1Char('\n') + QDir::toNativeSeparators(entry.origin.path);
    return text;
}

void RecoveryDialog::refresh()
{
    const int selected = list->selectedItems().size();
    recoverButton->setEnabled(selected == 1);
    discardButton->setEnabled(selected > 0);
}

void RecoveryDialog::recoverCurrent()
{
    const QList<QTreeWidgetItem *> rows = list->selectedItems();
    if (rows.size() != 1)
        return;
    const RecoveryEntry entry = entries[rows.first()->data(0, kEntryRole).toInt()];
    accept();
    Q_EMIT chosen(entry);
}

void RecoveryDialog::askToDiscard()
{
    auto *box = new QMessageBox(QMessageBox::Warning, windowTitle(), tr("Discard for good?"),
                                QMessageBox::NoButton, this);
    box->setObjectName(QStringLiteral("discardQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(tr("What was not saved of these drawings is lost."));
    const QPushButton *discarding = box->addButton(QMessageBox::Discard);
    box->addButton(QMessageBox::Cancel);
    connect(discarding, &QPushButton::clicked, this, &RecoveryDialog::discardSelected);
    box->open();
}

void RecoveryDialog::discardSelected()
{
    const QList<QTreeWidgetItem *> rows = list->selectedItems();
    for (QTreeWidgetItem *row : rows) {
        RecoveryEntry &entry = entries[row->data(0, kEntryRole).toInt()];
        entry.slot->discard();
        entry.slot.reset();
        delete row;
    }
    if (list->topLevelItemCount() == 0)
        accept();
}

} // namespace studio
