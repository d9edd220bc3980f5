#pragma once

#include <QtWidgets/QLabel>

class ZTGraphicsDocument;

namespace studio {

/** What to do first, in the middle of a canvas on which there is nothing yet. */
class EmptyHint : public QLabel
{
    Q_OBJECT

public:
    /** Shows itself over the document, which owns it, as long as it holds no shape. */
    explicit EmptyHint(ZTGraphicsDocument &document);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void follow();
    void retranslate();

    ZTGraphicsDocument &m_document;
};

} // namespace studio
