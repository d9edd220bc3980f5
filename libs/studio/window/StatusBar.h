#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QStatusBar>

class ZTGraphicsDocument;

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace studio {

/**
 * Shows what the program has to say, what the command under the mouse does, where the mouse is, the
 * selection's box, the zoom and how many shapes are selected.
 *
 * Lengths are in the unit of the program, y as people count it. The box is read from the
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

    /**
     * Shows words, for a while or until others come. What a command does is shown over them as
     * long as the mouse rests on it; then they are back, unless their time is over.
     */
    void showMessage(const QString &words, int forMs = 0);

    /** Takes words back that are no longer true, if they were the last. */
    void takeBack(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    QSize minimumSizeHint() const override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QLabel *addField(const QString &name);
    void showWhatFits();
    void retranslate();
    void connectDocument();
    void refreshLater();
    void refresh();
    void showSelection();
    void showTip(const QString &tip);
    void showCursorAt(const QPointF &scenePx);

    ZTGraphicsDocument &m_document;
    QLabel *m_cursorField = nullptr;
    QLabel *m_boxField = nullptr;
    QLabel *m_countField = nullptr;
    QLabel *m_zoomField = nullptr;
    QTimer m_refreshTimer;
    QString m_words;           ///< shown last by `showMessage`
    QDeadlineTimer m_wordsEnd; ///< when they are over
    QString m_tip;             ///< what stands over them; empty if nothing does
    int m_selectedCount = 0;
};

} // namespace studio
