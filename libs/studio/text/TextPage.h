#pragma once

#include <studio/text/TextSettings.h>

#include <QtWidgets/QWidget>

namespace studio {

/** One page of the text dialog. */
class TextPage : public QWidget
{
    Q_OBJECT

public:
    explicit TextPage(QWidget *parent);
    ~TextPage() override;

    /** Writes what is set on the page into the settings; the rest of them stays. */
    virtual void read(TextSettings &settings) const = 0;

Q_SIGNALS:
    void changed(); ///< by the user
};

} // namespace studio
