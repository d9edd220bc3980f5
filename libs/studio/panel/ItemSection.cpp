#include <studio/panel/ItemSection.h>

#include <studio/commands/ExtrasCommand.h>
#include <studio/edit/DocumentActions.h>
#include <studio/panel/ChoiceBox.h>
#include <studio/program/UndoTexts.h>
#include <studio/shapes/PenColors.h>
#include <studio/shapes/ShapeKinds.h>

#include <hostkit/marks/MarkFindings.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace studio {

namespace {

void push(ZTGraphicsDocument &document, const ExtrasCommand::Change &change, const char *undoSource)
{
    auto command = std::make_unique<ExtrasCommand>(selectedShapeItems(*document.scene()), change,
                                                   undoText(undoSource));
    if (!command->changesNothing())
        document.undoStack()->push(command.release());
}

} // namespace

ItemSection::ItemSection(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent)
    : PanelSection(parent), m_document(document), m_actions(actions), m_nameLabel(new QLabel(this)),
      m_name(new QLineEdit(this)), m_penLabel(new QLabel(this)), m_pen(new ChoiceBox(this)),
      m_marked(newFlag("panel.marked", &hostkit::ItemExtras::isMarked,
                       QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is marked"))),
      m_locked(newFlag("panel.locked", &hostkit::ItemExtras::isLocked,
                       QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is locked"))),
      m_hidden(newFlag("panel.hidden", &hostkit::ItemExtras::isHidden,
                       QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is hidden")))
{
    m_name->setObjectName(QStringLiteral("panel.name"));
    m_name->installEventFilter(this);
    m_nameLabel->setBuddy(m_name);
    connect(m_name, &QLineEdit::editingFinished, this, &ItemSection::takeName);
    m_pen->setObjectName(QStringLiteral("panel.pen"));
    m_penLabel->setBuddy(m_pen);
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->addItem(penSwatch(pen), QString());
    connect(m_pen, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { m_actions.setPen(index + 1); });

    auto *flags = new QHBoxLayout;
    for (QCheckBox *flag : {m_marked, m_locked, m_hidden})
        flags->addWidget(flag);
    flags->addStretch(1);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_nameLabel, 0, 0);
    grid->addWidget(m_name, 0, 1);
    grid->addWidget(m_penLabel, 1, 0);
    grid->addWidget(m_pen, 1, 1);
    grid->addLayout(flags, 2, 0, 1, 2);
    ItemSection::retranslate();
}

QCheckBox *ItemSection::newFlag(const char *name, bool hostkit::ItemExtras::*flag,
                                const char *undoSource)
{
    auto *box = new QCheckBox(this);
    box->setObjectName(QString::fromLatin1(name));
    connect(box, &QCheckBox::clicked, this, [this, box, flag, undoSource] {
        const bool isOn = box->checkState() == Qt::Checked;
        push(
            m_document, [flag, isOn](hostkit::ItemExtras &extras) { extras.*flag = isOn; },
            undoSource);
        Q_EMIT tried();
    });
    return box;
}

void ItemSection::retranslate()
{
    m_nameLabel->setText(tr("Name"));
    m_name->setAccessibleName(tr("Name"));
    m_name->setToolTip(tr("What the list of shapes calls it; empty: by its kind"));
    m_penLabel->setText(tr("Pen"));
    m_pen->setAccessibleName(tr("Pen"));
    m_pen->setToolTip(tr("Pen that marks the selected shapes"));
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->setItemText(pen - 1, QStringLiteral("%1  %2").arg(pen).arg(penName(pen)));
    m_marked->setText(tr("Marked"));
    m_marked->setToolTip(tr("Off: it is shown, and left out of what is marked"));
    m_locked->setText(tr("Locked"));
    m_locked->setToolTip(tr("It can be neither selected nor moved; the list of shapes frees it"));
    m_hidden->setText(tr("Hidden"));
    m_hidden->setToolTip(tr("It is not shown and not marked; the list of shapes brings it back"));
}

void ItemSection::follow(const ShapeItems &selected)
{
    setEnabled(!selected.isEmpty());
    const auto flag = [](bool hostkit::ItemExtras::*member) {
        return [member](const ShapeItem &item) { return hostkit::itemExtras(item).*member; };
    };
    showCommonFlag(*m_marked, selected, flag(&hostkit::ItemExtras::isMarked));
    showCommonFlag(*m_locked, selected, flag(&hostkit::ItemExtras::isLocked));
    showCommonFlag(*m_hidden, selected, flag(&hostkit::ItemExtras::isHidden));
    const int pen =
        commonValue(selected, [](const ShapeItem &item) { return item.getPenId(); }).value_or(0);
    m_pen->setPlaceholderText(selected.isEmpty() ? QString() : tr("differs"));
    m_pen->setCurrentIndex(pen >= 1 && pen <= kPenCount ? pen - 1 : -1);
    showName(selected);
}

/** What shapes without a name are called. */
QString ItemSection::nameOfUnnamed(const ShapeItems &selected)
{
    if (selected.size() == 1)
        return hostkit::shapeName(*selected.first());
    const auto kind = commonValue(
        selected, [](const ShapeItem &item) { return static_cast<int>(item.getShapeType()); });
    return kind ? kindName(static_cast<ShapeType>(*kind)) : QString();
}

void ItemSection::showName(const ShapeItems &selected)
{
    const auto name =
        commonValue(selected, [](const ShapeItem &item) { return hostkit::itemExtras(item).name; });
    m_name->setPlaceholderText(!name && !selected.isEmpty() ? tr("differs")
                                                            : nameOfUnnamed(selected));
    const QString shown = name.value_or(QString());
    if (shown == m_shownName && m_name->hasFocus() && m_name->isModified())
        return;
    m_shownName = shown;
    m_name->setText(shown);
}

void ItemSection::takeName()
{
    if (!m_name->isModified())
        return;
    m_name->setModified(false);
    const QString name = m_name->text().trimmed();
    push(
        m_document, [&name](hostkit::ItemExtras &extras) { extras.name = name; },
        QT_TRANSLATE_NOOP("studio::UndoTexts", "Rename"));
    Q_EMIT tried();
}

bool ItemSection::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_name)
        return PanelSection::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress && m_name->isModified() &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        m_name->setText(m_shownName);
        return true;
    }
    // Undo is the drawing's, as long as there is nothing typed to be undone.
    if (event->type() == QEvent::ShortcutOverride && !m_name->isModified()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return PanelSection::eventFilter(watched, event);
}

} // namespace studio
