#include <studio/text/TextTools.h>

#include <studio/commands/ExtrasCommand.h>
#include <studio/commands/FramePause.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/program/Messages.h>
#include <studio/program/UndoTexts.h>
#include <studio/shapes/ShapeItems.h>
#include <studio/text/InPlaceEditor.h>
#include <studio/text/SharedCounter.h>
#include <studio/text/TextCommand.h>
#include <studio/text/TextDialog.h>
#include <studio/text/VariantParts.h>

#include <hostkit/items/LastPart.h>

#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <vector>

namespace studio {

namespace {

QVector<hostkit::ItemExtras> extrasOf(const ShapeItems &items)
{
    QVector<hostkit::ItemExtras> extras;
    for (const ShapeItem *item : items)
        extras.append(hostkit::itemExtras(*item));
    return extras;
}

void giveExtras(const ShapeItems &items, const QVector<hostkit::ItemExtras> &extras)
{
    for (int at = 0; at < items.size(); ++at)
        hostkit::setItemExtras(*items[at], extras[at]);
}

/** Whether a text can be another one later, with the same numbers. */
bool ages(const ZTVariantText &text)
{
    const QVector<ZTVariantTextSegment> segments = text.getSegments();
    return std::any_of(segments.begin(), segments.end(), [](const ZTVariantTextSegment &segment) {
        return std::holds_alternative<ZTDateTimeSegment>(segment) ||
               std::holds_alternative<ZTTextFileSegment>(segment);
    });
}

} // namespace

TextTools::TextTools(ZTGraphicsDocument &edited, Messages &told, QWidget &over)
    : QObject(&over), m_document(edited), m_messages(told), m_window(over)
{
    connect(m_document.view(), &ZTGraphicsView::sigOnItemDouble, this, &TextTools::open);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &TextTools::followStack);
}

TextTools::~TextTools()
{
    closeEditor();
    delete m_dialog;
}

ZTGraphicsTextItem *TextTools::selectedText() const
{
    const QList<QGraphicsItem *> &selected =
        m_document.scene()->getGraphicsResizeItem()->selectItem();
    return selected.size() == 1 ? dynamic_cast<ZTGraphicsTextItem *>(selected.first()) : nullptr;
}

void TextTools::open(ShapeItem *item)
{
    auto *text = qobject_cast<ZTGraphicsTextItem *>(item);
    // A handle of the frame is no item; it stands for what the frame is around.
    if (item == nullptr)
        text = selectedText();
    if (text == nullptr)
        return;
    if (text->isEnableVariantText())
        showDialogFor(*text);
    else
        type(*text);
}

void TextTools::typeIntoSelected() { open(selectedText()); }

void TextTools::showDialog()
{
    if (ZTGraphicsTextItem *text = selectedText())
        showDialogFor(*text);
}

void TextTools::type(ZTGraphicsTextItem &item)
{
    finishTyping();
    m_editor = new InPlaceEditor(*m_document.view(), item);
    const TextState before(item);
    connect(m_editor, &InPlaceEditor::accepted, this,
            [this, before](const QString &words) { take(words, before); });
    connect(m_editor, &InPlaceEditor::givenUp, this, [this, before] {
        if (ZTGraphicsTextItem *text = m_editor->edited())
            before.restore(*text);
        closeEditor();
    });
}

void TextTools::take(const QString &words, const TextState &before)
{
    ZTGraphicsTextItem *item = m_editor->edited();
    closeEditor();
    if (item == nullptr)
        return;
    before.restore(*item);
    if (words.trimmed().isEmpty()) {
        // Nobody would find it again on the drawing.
        m_document.undoStack()->push(
            new DeleteItemsCommand(m_document.itemMag(), {item},
                                   undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Delete"))));
        return;
    }
    if (words == item->getFixedText())
        return;
    item->setFixedText(words);
    m_document.undoStack()->push(
        new TextCommand(item, before, TextCommand::VariantText::Kept,
                        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Type text"))));
}

// Later, because the field is often what is just telling of something.
void TextTools::closeEditor()
{
    if (!m_editor)
        return;
    InPlaceEditor *closing = m_editor;
    m_editor.clear();
    closing->disconnect(this);
    const bool hadFocus = closing->hasFocus();
    closing->hide();
    closing->deleteLater();
    if (hadFocus)
        m_document.view()->setFocus();
}

void TextTools::finishTyping()
{
    if (m_editor)
        m_editor->accept();
}

void TextTools::showDialogFor(ZTGraphicsTextItem &item)
{
    finishTyping();
    delete m_dialog;
    m_dialog = new TextDialog(item, *m_document.undoStack(), &m_window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->open();
}

/** The tree keeps the words that a text had when it came in; copies come in before their words. */
void TextTools::followStack()
{
    QSet<const ShapeItem *> texts;
    for (QGraphicsItem *selected : m_document.scene()->selectedItems()) {
        if (auto *text = dynamic_cast<ZTAbstractGraphicsTextItem *>(selected))
            texts.insert(text);
    }
    const QUndoStack &stack = *m_document.undoStack();
    for (const int step : {stack.index() - 1, stack.index()}) {
        if (const auto *command = dynamic_cast<const TextCommand *>(stack.command(step)))
            texts.insert(command->edited());
    }
    if (!texts.isEmpty())
        showInTree(texts);
}

void TextTools::showInTree(const QSet<const ShapeItem *> &texts)
{
    QAbstractItemModel &rows = *m_document.itemMag()->itemModel();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QModelIndex cell = rows.index(row, 1);
        const auto *item = cell.data(ZTItemModel::kItemRole).value<ShapeItem *>();
        if (item != nullptr && texts.contains(item) && cell.data(Qt::EditRole) != item->text())
            rows.setData(cell, item->text(), Qt::EditRole);
    }
}

void TextTools::shareCounter()
{
    ShapeItems sharing;
    for (ShapeItem *item : selectedShapeItems(*m_document.scene())) {
        if (wordsItem(item) != nullptr)
            sharing.append(item);
    }
    const auto source = std::find_if(sharing.begin(), sharing.end(), [](ShapeItem *item) {
        return wordsItem(item)->isEnableVariantText();
    });
    if (source == sharing.end() || sharing.size() < 2) {
        Q_EMIT told(tr("Select texts or codes, one of them with a counter"));
        return;
    }
    ZTAbstractGraphicsTextItem &first = *wordsItem(*source);
    sharing.erase(source);
    std::vector<TextState> before;
    for (ShapeItem *item : qAsConst(sharing))
        before.emplace_back(*wordsItem(item));
    const QVector<hostkit::ItemExtras> extrasBefore = extrasOf(sharing + ShapeItems{&first});
    studio::shareCounter(first, sharing);
    const int values = hostkit::itemExtras(first).valuesPerPart;
    giveExtras(sharing + ShapeItems{&first}, extrasBefore);
    const QString text = undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Share counter"));
    const UndoMacro macro(*m_document.undoStack(), text);
    for (int at = 0; at < sharing.size(); ++at)
        m_document.undoStack()->push(new TextCommand(wordsItem(sharing[at]),
                                                     before[std::size_t(at)],
                                                     TextCommand::VariantText::Changed, text));
    m_document.undoStack()->push(new ExtrasCommand(
        sharing + ShapeItems{&first},
        [values](hostkit::ItemExtras &extras) { extras.valuesPerPart = values; }, text));
}

void TextTools::nextPart()
{
    const ShapeItems all = shapeItemsOf(*m_document.scene());
    const NextPart part = [&] {
        const FramePause pause(*m_document.scene());
        return NextPart::make(all);
    }();
    if (part.texts.isEmpty()) {
        Q_EMIT told(tr("The drawing has no variant text"));
        return;
    }
    showInTree({all.begin(), all.end()});
    Q_EMIT partChanged();
    Q_EMIT told(tr("Next part: %1").arg(part.texts.join(QStringLiteral(", "))));
    const QStringList failed = part.errors + part.notReady;
    if (!failed.isEmpty())
        m_messages.failure({tr("A variant text is not complete."),
                            tr("Mend the list file or the text, then go to the next part."),
                            failed});
    else if (!part.usedUp.isEmpty())
        m_messages.warning({tr("A variant text is used up: its last value shows once more."),
                            tr("Give it new values before another part is marked."), part.usedUp});
}

QStringList TextTools::renewPart()
{
    ShapeItems ageing;
    std::vector<ZTVariantText> before;
    for (ShapeItem *item : shapeItemsOf(*m_document.scene())) {
        const ZTVariantText *text = hostkit::variantTextOf(*item);
        if (text == nullptr || !ages(*text))
            continue;
        ageing.append(item);
        before.push_back(*text);
    }
    const FramePause pause(*m_document.scene());
    QStringList errors = NextPart::again(ageing).errors;
    bool isOther = false;
    for (int at = 0; at < ageing.size(); ++at) {
        const ZTVariantText &former = before[std::size_t(at)];
        if (!errors.isEmpty()) {
            *hostkit::variantTextOf(*ageing[at]) = former;
            wordsItem(ageing[at])->fromVariantTextSetText();
        }
        isOther = isOther || hostkit::variantTextOf(*ageing[at])->getText() != former.getText();
    }
    if (isOther) {
        showInTree({ageing.begin(), ageing.end()});
        Q_EMIT partChanged();
    }
    return errors;
}

} // namespace studio
