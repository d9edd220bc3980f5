#pragma once

#include <studio/code/CodeEdit.h>

#include <QtWidgets/QWidget>

namespace studio {

/** One page of the code dialog. */
class CodePage : public QWidget
{
    Q_OBJECT

public:
    explicit CodePage(QWidget *parent);
    ~CodePage() override;

    /** Writes what is set on the page into the settings; the rest of them stays. */
    virtual void read(CodeEdit &edit) const = 0;

    /** Shows what a kind of code has and hides the rest. */
    virtual void setKind(codekit::CodeKind kind);

Q_SIGNALS:
    void changed(); ///< by the user
};

} // namespace studio
