#include <studio/help/ManualWindow.h>

#include <studio/help/PageBrowser.h>

#include <QtCore/QEvent>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QTextBlock>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>

// A resource of a static library comes in when it is asked for, from outside of any namespace.
static void bringInManual() { Q_INIT_RESOURCE(manual); }

namespace studio {

namespace {

const QString kFolder = QStringLiteral(":/studio/");
const QSize kFirstSize(900, 640);
constexpr int kChaptersWidth = 250;

/**
 * Lines of a paragraph belong together; only between words of Latin letters a line end is a blank.
 */
QString withoutBreaks(QString text)
{
    static const QRegularExpression breaks(
        QStringLiteral("(?<=[\\p{Han}\\x{3000}-\\x{303f}\\x{ff00}-\\x{ff65}\\x{201d}])\n *"
                       "(?=[\\p{Han}\\x{3000}-\\x{303f}\\x{ff00}-\\x{ff65}\\x{201c}])"),
        QRegularExpression::UseUnicodePropertiesOption);
    return text.replace(breaks, QString());
}

/** The manual's text and its pictures, from the program itself. */
class ManualText final : public PageBrowser
{
public:
    explicit ManualText(QWidget *parent) : PageBrowser(parent) { setOpenLinks(false); }

protected:
    QByteArray contentOf(const QUrl &name) const override
    {
        QFile file(kFolder + name.path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

ManualWindow::ManualWindow(QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_words(new QLineEdit(this)), m_wordsLabel(new QLabel(this)), m_found(new QLabel(this)),
      m_chapters(new QListWidget(this)), m_text(new ManualText(this))
{
    setObjectName(QStringLiteral("manual"));
    build();
    resize(kFirstSize);
    bringInManual();
    retranslate();
    m_words->setFocus();
}

void ManualWindow::build()
{
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setClearButtonEnabled(true);
    m_wordsLabel->setBuddy(m_words);
    m_found->setObjectName(QStringLiteral("found"));
    m_chapters->setObjectName(QStringLiteral("chapters"));
    m_chapters->setFixedWidth(kChaptersWidth);
    m_text->setObjectName(QStringLiteral("text"));
    connect(m_words, &QLineEdit::textEdited, this, [this] { search(false); });
    connect(m_words, &QLineEdit::returnPressed, this, [this] { search(true); });
    connect(m_chapters, &QListWidget::currentRowChanged, this, &ManualWindow::goTo);

    auto *top = new QHBoxLayout;
    top->addWidget(m_wordsLabel);
    top->addWidget(m_words, 1);
    top->addWidget(m_found);
    auto *below = new QHBoxLayout;
    below->addWidget(m_chapters);
    below->addWidget(m_text, 1);
    auto *all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addLayout(below, 1);
}

void ManualWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ManualWindow::retranslate()
{
    setWindowTitle(tr("User manual"));
    m_wordsLabel->setText(tr("&Search"));
    m_chapters->setAccessibleName(tr("Chapters"));
    m_found->clear();
    load();
}

/** The manual of the program's language, which has the same chapters as any other. */
void ManualWindow::load()
{
    const QString name = tr("user-manual.md", "name of the file in this language");
    if (name == m_file)
        return;
    m_file = name;
    const int chapter = m_chapters->currentRow();
    QFile file(kFolder + name);
    if (file.open(QIODevice::ReadOnly))
        m_text->setMarkdown(withoutBreaks(QString::fromUtf8(file.readAll())));
    listChapters();
    m_chapters->setCurrentRow(chapter);
}

/** Every heading is a chapter; the list's rows keep the places of their blocks. */
void ManualWindow::listChapters()
{
    m_chapters->clear();
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 0)
            continue;
        auto *row = new QListWidgetItem(QString((level - 1) * 2, QLatin1Char(' ')) + block.text(),
                                        m_chapters);
        row->setData(Qt::UserRole, block.position());
    }
}

void ManualWindow::goTo(int chapter)
{
    if (chapter < 0)
        return;
    QTextCursor cursor(m_text->document());
    // From below, so that the chapter begins at the top.
    cursor.movePosition(QTextCursor::End);
    m_text->setTextCursor(cursor);
    cursor.setPosition(m_chapters->item(chapter)->data(Qt::UserRole).toInt());
    m_text->setTextCursor(cursor);
}

/** From where the last search ended, or on from there; around the end once. */
void ManualWindow::search(bool isNext)
{
    const QString words = m_words->text();
    m_found->clear();
    QTextCursor from = m_text->textCursor();
    from.setPosition(isNext ? from.selectionEnd() : from.selectionStart());
    m_text->setTextCursor(from);
    if (words.isEmpty() || m_text->find(words))
        return;
    m_text->moveCursor(QTextCursor::Start);
    if (!m_text->find(words))
        m_found->setText(tr("Not found"));
}

} // namespace studio
