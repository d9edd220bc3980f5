#pragma once

#include <QtWidgets/QTextBrowser>

namespace studio {

/** Shows pages; wide pictures are made smaller. Where pages come from, derived classes say. */
class PageBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PageBrowser(QWidget *parent = nullptr);

    QVariant loadResource(int type, const QUrl &name) final;

protected:
    /** The bytes of a page or a picture; empty where there is none. */
    virtual QByteArray contentOf(const QUrl &name) const = 0;
};

} // namespace studio
