#pragma once

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class Messages;

/** Brings the drawing to a printer or into a PDF. */
class PrintActions : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this; `window` is what dialogs stand over. */
    PrintActions(ZTGraphicsDocument &document, Messages &messages, QWidget &window);

    /** Asks for a printer, without waiting for the answer. */
    void choosePrinter();

    /** Asks for a file. */
    void choosePdf();

    /** Writes a PDF; false where it was not, after telling why. */
    bool writePdf(const QString &path);

Q_SIGNALS:
    void written(const QString &path);

private:
    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    QWidget &m_window;
};

} // namespace studio
