#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QStatusBar>

class ZTGraphicsDocument;

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace studio {

/**
 * Shows where the mouse is, the selection's box, the zoom and how many shapes are selected.
 *
 * Lengths are millimetres, x to the right and y downward from the origin. The box is read from the
 * selection frame, and figures are brought up to date at most some thirty times a second, so it
 * costs the same however much is selected.
 */
class StatusBar : public QStatusBar
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit StatusBar(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    void showZoom(double scale);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QLabel *addField(const QString &name);
    void retranslate();
    void connectDocument();
    void refreshLater();
    void refresh();
    void showSelection();
    void showCursorAt(const QPointF &scenePx);

    ZTGraphicsDocument &m_document;
    QLabel *m_cursorField = nullptr;
    QLabel *m_boxField = nullptr;
    QLabel *m_countField = nullptr;
    QLabel *m_zoomField = nullptr;
    QTimer m_refreshTimer;
    int m_selectedCount = 0;
};

} // namespace studio
