#pragma once

#include <QtWidgets/QMenu>

QT_BEGIN_NAMESPACE
class QActionGroup;
QT_END_NAMESPACE

namespace studio {

class Language;
enum class LanguageChoice;

/** Lets the user choose the language. Each language has its own name in every language. */
class LanguageMenu : public QMenu
{
    Q_OBJECT

public:
    /** `language` is borrowed and outlives this. */
    explicit LanguageMenu(Language &language, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    QAction *add(const QString &text, const char *name, LanguageChoice choice);
    void retranslate();

    Language &m_language;
    QActionGroup *m_group;
    QAction *m_systemAction;
};

} // namespace studio
