#include <studio/code/CodeDialog.h>

#include <studio/choices/Units.h>
#include <studio/code/CodeFormPage.h>
#include <studio/code/CodeOptionsPage.h>
#include <studio/code/CodeTextPage.h>
#include <studio/program/UndoTexts.h>
#include <studio/text/HatchPage.h>
#include <studio/text/VariantParts.h>
#include <studio/text/WordsPage.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <cmath>

namespace studio {

namespace {

constexpr int kPartsAhead = 10;

/** A length in the unit of the program, without zeros that say nothing but with one decimal. */
QString lengthText(double mm)
{
    const int decimals = units::unit() == LengthUnit::Inch ? 5 : 3;
    QString text = QString::number(mm / units::unitMm(), 'f', decimals);
    while (text.endsWith(QLatin1Char('0')) && text[text.size() - 2] != QLatin1Char('.'))
        text.chop(1);
    return text;
}

codekit::CodeItem *codeOf(ZTAbstractGraphicsItem *item) { return codekit::codeItem(item); }

} // namespace

QString codeSummary(const codekit::CodeItem &item)
{
    const codekit::CodeSymbol &symbol = item.code().symbol();
    if (symbol.columns == 0)
        return {};
    const QTransform &transform = item.code().getTransformParam();
    const QSizeF sizeMm = codekit::codeSizeMm(symbol, item.code().form());
    const double width = sizeMm.width() * std::hypot(transform.m11(), transform.m12());
    const double height = sizeMm.height() * std::hypot(transform.m21(), transform.m22());
    const bool isSquare = std::abs(width - height) < 0.0005;
    const QString size = isSquare
                             ? lengthText(width)
                             : QStringLiteral("%1 x %2").arg(lengthText(width), lengthText(height));
    return CodeDialog::tr("%1 x %2, %3 %4, reads: %5")
        .arg(symbol.columns)
        .arg(symbol.rows)
        .arg(size, units::name(), onOneLine(symbol.reads));
}

QString mirrorWarning(const codekit::CodeItem &item)
{
    const bool isMirrored = item.code().getTransformParam().determinant() < 0.0;
    return isMirrored ? CodeDialog::tr("The code is mirrored: scanners read it from behind, or not "
                                       "at all.")
                      : QString();
}

CodeDialog::CodeDialog(codekit::CodeItem &item, QUndoStack &stack, QWidget *parent)
    : PreviewDialog(item, stack, parent), m_initial(CodeEdit::of(item)),
      m_words(new WordsPage(m_initial.words)), m_hatch(new HatchPage(m_initial.words))
{
    setObjectName(QStringLiteral("codeDialog"));
    setWindowTitle(tr("Code"));
    buildKindRow();
    buildStatus();
    addPage(m_words, tr("&1 Content"));
    connect(m_words, &TextPage::changed, this, &CodeDialog::previewSoon);
    addCodePage(new CodeFormPage(m_initial), tr("&2 Size and form"));
    addCodePage(new CodeOptionsPage(m_initial), tr("&3 Options"));
    addCodePage(new CodeTextPage(m_initial), tr("&4 Text"));
    addPage(m_hatch, tr("&5 Hatch"));
    connect(m_hatch, &TextPage::changed, this, &CodeDialog::previewSoon);
    m_hatch->setKind(FontType::doubleLine); // a code is hatched whatever its text is written in
    for (CodePage *page : qAsConst(m_pages))
        page->setKind(m_initial.code.spec.kind);
    showStatus();
}

void CodeDialog::addCodePage(CodePage *page, const QString &title)
{
    m_pages.append(page);
    addPage(page, title);
    connect(page, &CodePage::changed, this, &CodeDialog::previewSoon);
}

void CodeDialog::buildKindRow()
{
    m_kindBox = new QComboBox(this);
    m_kindBox->setObjectName(QStringLiteral("kind"));
    for (const codekit::CodeKindInfo &info : codekit::codeKinds())
        m_kindBox->addItem(QLatin1String(info.label), int(info.kind));
    m_kindBox->setCurrentIndex(m_kindBox->findData(int(m_initial.code.spec.kind)));
    auto *row = new QFormLayout;
    row->addRow(tr("&Kind"), m_kindBox);
    insertAbove(row);
    connect(m_kindBox, qOverload<int>(&QComboBox::activated), this, &CodeDialog::changeKind);
}

void CodeDialog::buildStatus()
{
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("codeStatus"));
    m_problem = new QLabel(this);
    m_problem->setObjectName(QStringLiteral("codeProblem"));
    for (QLabel *label : {m_status, m_problem}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_problem->setStyleSheet(QStringLiteral("color: #c00000"));
    auto *lines = new QVBoxLayout;
    lines->addWidget(m_status);
    lines->addWidget(m_problem);
    insertBelow(lines);
}

void CodeDialog::changeKind()
{
    for (CodePage *page : qAsConst(m_pages))
        page->setKind(codekit::CodeKind(m_kindBox->currentData().toInt()));
    previewSoon();
}

CodeEdit CodeDialog::wanted() const
{
    CodeEdit edit = m_initial;
    for (const CodePage *page : m_pages)
        page->read(edit);
    m_words->read(edit.words);
    m_hatch->read(edit.words);
    edit.code.spec.kind = codekit::CodeKind(m_kindBox->currentData().toInt());
    return edit;
}

void CodeDialog::apply(bool isTaken)
{
    CodeEdit edit = wanted();
    if (isTaken && edit.words.variantText != m_initial.words.variantText)
        edit.words.variantText.update(); // makes the present part
    codekit::CodeItem &item = *codeOf(edited());
    edit.applyTo(item);
    if (item.code().notReadyReason().isEmpty()) {
        m_lastGood = edit;
    } else if (m_lastGood) { // it stays on the drawing, not what stood there at first
        m_lastGood->applyTo(item);
        edit.applyTo(item);
    }
    showStatus();
}

TextCommand::VariantText CodeDialog::variantChange() const
{
    const CodeEdit edit = wanted();
    const bool isChanged = edit.words.variantText != m_initial.words.variantText ||
                           edit.words.isVariant != m_initial.words.isVariant;
    return isChanged ? TextCommand::VariantText::Changed : TextCommand::VariantText::Kept;
}

QString CodeDialog::stepText() const
{
    return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change code"));
}

void CodeDialog::showStatus()
{
    const codekit::CodeItem *item = codeOf(edited());
    if (item == nullptr)
        return;
    const QString reason = item->code().notReadyReason();
    const QString summary = codeSummary(*item);
    m_status->setText(reason.isEmpty() || summary.isEmpty()
                          ? summary
                          : tr("The drawing still shows the last good code: %1").arg(summary));
    QStringList problems{reason.isEmpty() ? nextPartProblem(wanted())
                                          : tr("Cannot be made: %1").arg(reason),
                         mirrorWarning(*item)};
    problems.removeAll(QString());
    m_problem->setText(problems.join(QLatin1Char('\n')));
    m_status->setVisible(!m_status->text().isEmpty());
    m_problem->setVisible(!m_problem->text().isEmpty());
}

/** The first of the next parts whose content cannot be encoded. */
QString CodeDialog::nextPartProblem(const CodeEdit &edit) const
{
    if (!edit.words.isVariant)
        return {};
    codekit::CodeSpec spec = edit.code.spec;
    for (const QString &content :
         partPreview(edit.words.variantText, edit.words.valuesPerPart, kPartsAhead)) {
        codekit::CodeSymbol symbol;
        QString reason;
        spec.content = content;
        if (!codekit::encodeCode(spec, &symbol, &reason))
            return tr("A later part, \"%1\", cannot be made: %2").arg(onOneLine(content), reason);
    }
    return {};
}

} // namespace studio
