#include <studio/panel/CodeSection.h>

#include <studio/choices/Units.h>
#include <studio/code/CodeDialog.h>
#include <studio/commands/UndoMacro.h>
#include <studio/program/UndoTexts.h>
#include <studio/text/TextCommand.h>

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <memory>
#include <vector>

namespace studio {

namespace {

constexpr MeasureField::Range kModuleMm{0.001, 1000.0};

bool areCodes(const ShapeItems &items)
{
    return !items.isEmpty() && std::all_of(items.begin(), items.end(), [](ShapeItem *item) {
        return codekit::codeItem(item) != nullptr;
    });
}

/** Brings a code to a module; the edit, to be recorded, or null if it has that module. */
std::unique_ptr<TextCommand> setModuleOf(codekit::CodeItem &item, double moduleMm,
                                         const QString &text)
{
    const TextState before(item);
    CodeEdit edit = CodeEdit::of(item);
    edit.code.isSizedByWidth = false;
    edit.code.form.moduleMm = moduleMm;
    edit.applyTo(item);
    if (TextState(item) == before)
        return nullptr;
    return std::make_unique<TextCommand>(&item, before, TextCommand::VariantText::Kept, text);
}

} // namespace

CodeSection::CodeSection(ZTGraphicsDocument &document, QWidget *parent)
    : PanelSection(parent), m_document(document), m_summary(new QLabel(this)),
      m_problem(new QLabel(this)), m_moduleLabel(new QLabel(this)),
      m_module(newField("panel.module", MeasureField::Quantity::Length, kModuleMm)),
      m_unit(new QLabel(this)), m_settings(new QPushButton(this))
{
    m_summary->setObjectName(QStringLiteral("panel.codeSummary"));
    m_problem->setObjectName(QStringLiteral("panel.codeProblem"));
    m_problem->setStyleSheet(QStringLiteral("color: #c00000"));
    for (QLabel *label : {m_summary, m_problem}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_settings->setObjectName(QStringLiteral("panel.codeSettings"));
    m_moduleLabel->setBuddy(m_module);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_summary, 0, 0, 1, 3);
    grid->addWidget(m_problem, 1, 0, 1, 3);
    grid->addWidget(m_moduleLabel, 2, 0);
    grid->addWidget(m_module, 2, 1);
    grid->addWidget(m_unit, 2, 2);
    grid->addWidget(m_settings, 3, 0, 1, 3);
    connect(m_module, &MeasureField::committed, this,
            [this](double mm) { settle(*m_module, setModule(mm)); });
    connect(m_settings, &QPushButton::clicked, this, &CodeSection::settingsWanted);
    CodeSection::retranslate();
    CodeSection::follow({});
}

void CodeSection::retranslate()
{
    m_moduleLabel->setText(tr("Module"));
    m_unit->setText(units::name());
    m_module->setAccessibleName(m_moduleLabel->text());
    m_module->setHint(tr("Width of the narrowest bar, or of one square"));
    m_settings->setText(tr("Code settings..."));
}

void CodeSection::follow(const ShapeItems &selected)
{
    setVisible(areCodes(selected));
    m_settings->setEnabled(selected.size() == 1);
    followPlaces(selected);
}

void CodeSection::followPlaces(const ShapeItems &selected)
{
    if (!areCodes(selected)) {
        m_summary->clear();
        m_problem->clear();
        return;
    }
    const codekit::CodeItem &first = *codekit::codeItem(selected.first());
    const bool isOne = selected.size() == 1;
    m_summary->setText(isOne ? codeSummary(first) : tr("%1 codes").arg(selected.size()));
    const QString reason = first.code().notReadyReason();
    m_problem->setText(!isOne ? QString() : reason.isEmpty() ? mirrorWarning(first) : reason);
    m_summary->setVisible(!m_summary->text().isEmpty());
    m_problem->setVisible(!m_problem->text().isEmpty());
    showCommon(*m_module, selected,
               [](const ShapeItem &item) { return codekit::codeItem(&item)->moduleMm(); });
}

QString CodeSection::setModule(double moduleMm)
{
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    if (!areCodes(selected))
        return {};
    const QString text = undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change code"));
    std::vector<std::unique_ptr<TextCommand>> edits;
    for (ShapeItem *item : selected) {
        if (auto edit = setModuleOf(*codekit::codeItem(item), moduleMm, text))
            edits.push_back(std::move(edit));
    }
    if (edits.empty())
        return {};
    const UndoMacro macro(*m_document.undoStack(), text);
    for (auto &edit : edits)
        m_document.undoStack()->push(edit.release());
    return {};
}

} // namespace studio
