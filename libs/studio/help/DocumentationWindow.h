#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
class QHelpEngine;
class QLabel;
class QLineEdit;
class QTextBrowser;
struct QHelpLink;
QT_END_NAMESPACE

namespace studio {

/**
 * The Qt help that is installed for the program in this folder, or that its build tree has made;
 * empty where there is none.
 */
QString documentationFile(const QString &programFolder);

/**
 * The documentation for developers: guides and reference as the Qt help has them, with its contents
 * and its index. Without a help that can be read it says what is missing.
 */
class DocumentationWindow : public QDialog
{
    Q_OBJECT

public:
    /** Shows the first page of a compressed help (.qch); an empty name: there is none. */
    explicit DocumentationWindow(const QString &helpFile, QWidget *parent = nullptr);
    ~DocumentationWindow() override;

    /** Whether there is a documentation to be shown. */
    bool hasPages() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    bool readPages(const QString &helpFile);
    void build();
    void retranslate();
    void offer(const QList<QHelpLink> &pages, const QString &name);
    void showContents();

    QTemporaryDir m_folder; ///< of the collection that the help is registered in
    std::unique_ptr<QHelpEngine> m_engine;
    bool m_hasPages;
    QLineEdit *m_words; ///< child, as all below
    QLabel *m_wordsLabel;
    QTextBrowser *m_text;
};

} // namespace studio
