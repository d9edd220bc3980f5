#include <studio/drawing/RecoveryDialog.h>

#include <studio/program/Icons.h>
#include <studio/program/Language.h>

#include <QtCore/QDir>
#include <QtCore/QEvent>
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
    return pictureIcon(paper);
}

} // namespace

RecoveryDialog::RecoveryDialog(const QVector<RecoveryEntry> &found, QWidget *parent)
    : QDialog(parent), m_entries(found), m_hintLabel(new QLabel(this)),
      m_list(new QTreeWidget(this)), m_recoverButton(new QPushButton(this)),
      m_discardButton(new QPushButton(this)), m_laterButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("recoveryDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(kFirstSize);
    layOut();
    fill();
    retranslate();
    refresh();
    connect(m_recoverButton, &QPushButton::clicked, this, &RecoveryDialog::recoverCurrent);
    connect(m_discardButton, &QPushButton::clicked, this, &RecoveryDialog::askToDiscard);
    connect(m_laterButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &RecoveryDialog::refresh);
    connect(m_list, &QTreeWidget::itemActivated, this, &RecoveryDialog::recoverCurrent);
}

void RecoveryDialog::layOut()
{
    m_hintLabel->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("recoveryList"));
    m_list->setRootIsDecorated(false);
    m_list->setHeaderHidden(true);
    m_list->setIconSize({kPictureSide, kPictureSide});
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_recoverButton->setObjectName(QStringLiteral("recover"));
    m_recoverButton->setDefault(true);
    m_discardButton->setObjectName(QStringLiteral("discard"));
    m_laterButton->setObjectName(QStringLiteral("later"));

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(m_recoverButton, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_discardButton, QDialogButtonBox::DestructiveRole);
    buttons->addButton(m_laterButton, QDialogButtonBox::RejectRole);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_hintLabel);
    column->addWidget(m_list);
    column->addWidget(buttons);
}

void RecoveryDialog::fill()
{
    for (int i = 0; i < m_entries.size(); ++i) {
        auto *row = new QTreeWidgetItem(m_list);
        row->setIcon(0, pictureOf(m_entries[i].preview));
        row->setData(0, kEntryRole, i);
    }
    if (!m_entries.isEmpty())
        m_list->setCurrentItem(m_list->topLevelItem(0));
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
    m_hintLabel->setText(
        m_entries.isEmpty() ? tr("There is nothing to recover: every drawing was saved or let go.")
                            : tr("The studio ended without saving these drawings. What is left for "
                                 "later is offered again."));
    m_recoverButton->setText(tr("&Recover"));
    m_discardButton->setText(tr("&Discard..."));
    m_laterButton->setText(m_entries.isEmpty() ? tr("&Close") : tr("&Later"));
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_list->topLevelItem(i);
        row->setText(0, describe(m_entries[row->data(0, kEntryRole).toInt()]));
    }
}

QString RecoveryDialog::describe(const RecoveryEntry &entry)
{
    const QString when = textLocale().toString(entry.savedAt.toLocalTime(), QLocale::ShortFormat);
    QString text =
        entry.name() + QLatin1Char('\n') + tr("%1, shapes: %L2").arg(when).arg(entry.shapes);
    if (!entry.origin.path.isEmpty())
        text += QLatin1Char('\n') + QDir::toNativeSeparators(entry.origin.path);
    return text;
}

void RecoveryDialog::refresh()
{
    const int selected = m_list->selectedItems().size();
    m_recoverButton->setEnabled(selected == 1);
    m_discardButton->setEnabled(selected > 0);
}

void RecoveryDialog::recoverCurrent()
{
    const QList<QTreeWidgetItem *> rows = m_list->selectedItems();
    if (rows.size() != 1)
        return;
    const RecoveryEntry entry = m_entries[rows.first()->data(0, kEntryRole).toInt()];
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
    const QList<QTreeWidgetItem *> rows = m_list->selectedItems();
    for (QTreeWidgetItem *row : rows) {
        RecoveryEntry &entry = m_entries[row->data(0, kEntryRole).toInt()];
        entry.slot->discard();
        entry.slot.reset();
        delete row;
    }
    if (m_list->topLevelItemCount() == 0)
        accept();
}

} // namespace studio
