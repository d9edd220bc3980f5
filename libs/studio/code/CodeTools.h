#pragma once

#include <codekit/shape/CodeItem.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class CodeDialog;
class VerifyDialog;

/**
 * What is done to codes alone: the dialog with all settings, which a double click on a code opens,
 * and reading all codes back.
 */
class CodeTools : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this; `window` is what dialogs stand over. */
    CodeTools(ZTGraphicsDocument &document, QWidget &window);
    ~CodeTools() override;

    /** The selected code if it is the whole selection, or null. */
    codekit::CodeItem *selectedCode() const;

    void showDialog();
    void showDialogFor(codekit::CodeItem &item);

    /** Reads every code of the drawing from its final marks and tells what it says. */
    void verify();

private:
    void open(ZTAbstractGraphicsItem *item);

    ZTGraphicsDocument &m_document;
    QWidget &m_window;
    QPointer<CodeDialog> m_dialog;
    QPointer<VerifyDialog> m_verifyDialog;
};

} // namespace studio
