#pragma once

#include <QtCore/QString>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;
QT_END_NAMESPACE

namespace studio {

/**
 * The manual in the program, in its language: the chapters at the side, the text, and a field that
 * searches it.
 */
class ManualWindow : public QDialog
{
    Q_OBJECT

public:
    explicit ManualWindow(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void retranslate();
    void load();
    void listChapters();
    void goTo(int chapter);
    void search(bool isNext);

    QLineEdit *m_words; ///< child, as all below
    QLabel *m_wordsLabel;
    QLabel *m_found;
    QListWidget *m_chapters;
    QTextBrowser *m_text;
    QString m_file; ///< that is shown
};

} // namespace studio
