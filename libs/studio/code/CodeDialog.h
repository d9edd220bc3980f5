#pragma once

#include <studio/code/CodeEdit.h>
#include <studio/text/PreviewDialog.h>

#include <optional>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
QT_END_NAMESPACE

namespace studio {

class CodePage;
class HatchPage;
class WordsPage;

/**
 * All settings of a code. The drawing shows each change at once, and one line says how large the
 * code is and what it reads; a content that cannot be encoded is said there with the reason, while
 * the last good code stays. OK makes the changes one undo step, and Cancel brings back what was
 * there.
 */
class CodeDialog : public PreviewDialog
{
    Q_OBJECT

public:
    /** `item` and `stack` are borrowed; an item that goes closes the dialog. */
    CodeDialog(codekit::CodeItem &item, QUndoStack &stack, QWidget *parent);

protected:
    void apply(bool isTaken) override;
    TextCommand::VariantText variantChange() const override;
    QString stepText() const override;

private:
    void addCodePage(CodePage *page, const QString &title);
    void buildKindRow();
    void buildStatus();
    void changeKind();
    CodeEdit wanted() const;
    void showStatus();
    QString nextPartProblem(const CodeEdit &edit) const;

    const CodeEdit m_initial;
    std::optional<CodeEdit> m_lastGood; ///< the last of the settings that made a code
    QComboBox *m_kindBox = nullptr;
    WordsPage *m_words;
    QVector<CodePage *> m_pages;
    HatchPage *m_hatch;
    QLabel *m_status = nullptr;
    QLabel *m_problem = nullptr;
};

/** "18 x 18, 9.0 mm, reads: SN-0001": what a code is and says. Lengths as marked. */
QString codeSummary(const codekit::CodeItem &item);

/** Of a code that scanners see turned over, a sentence; empty for others. */
QString mirrorWarning(const codekit::CodeItem &item);

} // namespace studio
