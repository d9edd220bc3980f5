#include <studio/window/ShortcutSheet.h>

#include <studio/window/CommandTable.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTableWidget>

namespace studio {

namespace {

const QSize kFirstSize(620, 640);

/** What a command is called, without what belongs to menus. */
QString nameOf(const Command &command)
{
    const char *source = *command.toolTip != '\0' ? command.toolTip : command.text;
    QString name = QCoreApplication::translate("studio", source);
    // Mnemonics of Chinese menus stand in brackets behind the text.
    const int bracket = name.indexOf(QLatin1String("(&"));
    if (bracket >= 0)
        name.remove(bracket, 4);
    return name.remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

QString keysOf(const Command &command)
{
    QStringList keys;
    const QList<QKeySequence> sequences =
        QKeySequence::listFromString(QLatin1String(command.shortcuts));
    for (const QKeySequence &sequence : sequences)
        keys << sequence.toString(QKeySequence::NativeText);
    return keys.join(QStringLiteral(", "));
}

} // namespace

ShortcutSheet::ShortcutSheet(QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowCloseButtonHint), m_wordsLabel(new QLabel(this)),
      m_words(new QLineEdit(this)), m_table(new QTableWidget(0, 2, this))
{
    setObjectName(QStringLiteral("shortcutSheet"));
    resize(kFirstSize);
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setClearButtonEnabled(true);
    m_wordsLabel->setBuddy(m_words);
    m_table->setObjectName(QStringLiteral("shortcuts"));
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(m_words, &QLineEdit::textChanged, this, &ShortcutSheet::filter);
    auto *top = new QHBoxLayout;
    top->addWidget(m_wordsLabel);
    top->addWidget(m_words, 1);
    auto *all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(m_table, 1);
    fill();
}

void ShortcutSheet::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        fill();
}

void ShortcutSheet::fill()
{
    setWindowTitle(tr("Shortcuts"));
    m_wordsLabel->setText(tr("&Search"));
    m_table->setHorizontalHeaderLabels({tr("What"), tr("Keys")});
    m_table->setRowCount(0);
    for (const Command &command : commandTable()) {
        const QString keys = keysOf(command);
        if (keys.isEmpty())
            continue;
        const int row = m_table->rowCount();
        m_table->insertRow(row);
        m_table->setItem(row, 0, new QTableWidgetItem(nameOf(command)));
        m_table->setItem(row, 1, new QTableWidgetItem(keys));
    }
    filter(m_words->text());
}

void ShortcutSheet::filter(const QString &words)
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const bool isMeant = m_table->item(row, 0)->text().contains(words, Qt::CaseInsensitive) ||
                             m_table->item(row, 1)->text().contains(words, Qt::CaseInsensitive);
        m_table->setRowHidden(row, !isMeant);
    }
}

} // namespace studio
