#include <studio/help/DocumentationWindow.h>

#include <studio/help/PageBrowser.h>

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtGui/QDesktopServices>
#include <QtHelp/QHelpContentWidget>
#include <QtHelp/QHelpEngine>
#include <QtHelp/QHelpIndexWidget>
#include <QtHelp/QHelpLink>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

const QSize kFirstSize(1000, 680);
const QString kScheme = QStringLiteral("qthelp");

/** Reads pages and pictures out of the help. */
class HelpBrowser final : public PageBrowser
{
public:
    HelpBrowser(const QHelpEngineCore &engine, QWidget *parent)
        : PageBrowser(parent), m_engine(engine)
    {
        setOpenLinks(false);
        connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
    }

protected:
    QByteArray contentOf(const QUrl &name) const override
    {
        return name.scheme() == kScheme ? m_engine.fileData(name) : QByteArray();
    }

private:
    void follow(const QUrl &link)
    {
        const QUrl url = source().resolved(link);
        if (url.scheme() == kScheme)
            setSource(url);
        else
            QDesktopServices::openUrl(url);
    }

    const QHelpEngineCore &m_engine; ///< borrowed from the window, which outlives this
};

} // namespace

QString documentationFile(const QString &programFolder)
{
    for (const QString &place :
         {QStringLiteral("/../share/doc/libztdrawengine-doc"), QStringLiteral("/../../docs")}) {
        const QFileInfo file(programFolder + place + QStringLiteral("/ztdrawengine.qch"));
        if (file.isFile())
            return file.canonicalFilePath();
    }
    return {};
}

DocumentationWindow::DocumentationWindow(const QString &helpFile, QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_engine(std::make_unique<QHelpEngine>(m_folder.filePath(QStringLiteral("help.qhc")))),
      m_hasPages(readPages(helpFile)), m_words(new QLineEdit(this)), m_wordsLabel(new QLabel(this)),
      m_text(new HelpBrowser(*m_engine, this))
{
    setObjectName(QStringLiteral("documentation"));
    build();
    resize(kFirstSize);
    retranslate();
    if (m_hasPages)
        showContents();
}

// Before the engine goes, whose contents and index they show.
DocumentationWindow::~DocumentationWindow()
{
    delete findChild<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
}

bool DocumentationWindow::hasPages() const { return m_hasPages; }

bool DocumentationWindow::readPages(const QString &helpFile)
{
    return !helpFile.isEmpty() && m_engine->setupData() &&
           m_engine->registerDocumentation(helpFile);
}

void DocumentationWindow::build()
{
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setClearButtonEnabled(true);
    m_words->setEnabled(m_hasPages);
    m_wordsLabel->setBuddy(m_words);
    m_text->setObjectName(QStringLiteral("text"));
    QHelpContentWidget *contents = m_engine->contentWidget();
    QHelpIndexWidget *index = m_engine->indexWidget();
    contents->setObjectName(QStringLiteral("contents"));
    index->setObjectName(QStringLiteral("index"));
    connect(contents, &QHelpContentWidget::linkActivated, m_text,
            [this](const QUrl &page) { m_text->setSource(page); });
    connect(index, &QHelpIndexWidget::documentActivated, m_text,
            [this](const QHelpLink &page) { m_text->setSource(page.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this, &DocumentationWindow::offer);
    connect(m_words, &QLineEdit::textEdited, index,
            [index](const QString &words) { index->filterIndices(words, words); });
    connect(m_words, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);

    auto *top = new QHBoxLayout;
    top->addWidget(m_wordsLabel);
    top->addWidget(m_words, 1);
    auto *lists = new QSplitter(Qt::Vertical);
    lists->addWidget(contents);
    lists->addWidget(index);
    auto *below = new QSplitter(this);
    below->addWidget(lists);
    below->addWidget(m_text);
    below->setStretchFactor(1, 3);
    lists->setVisible(m_hasPages);
    auto *all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(below, 1);
}

/** A name that stands on several pages: they are listed to choose from. */
void DocumentationWindow::offer(const QList<QHelpLink> &pages, const QString &name)
{
    QString list = QStringLiteral("<h2>%1</h2>").arg(name.toHtmlEscaped());
    for (const QHelpLink &page : pages)
        list += QStringLiteral("<p><a href=\"%1\">%2</a></p>")
                    .arg(page.url.toString().toHtmlEscaped(), page.title.toHtmlEscaped());
    m_text->setHtml(list);
}

void DocumentationWindow::showContents()
{
    const QList<QUrl> pages =
        m_engine->files(m_engine->registeredDocumentations().value(0), QString(), QString());
    for (const QUrl &page : pages) {
        if (page.fileName() == QLatin1String("index.html"))
            m_text->setSource(page);
    }
    // They are read in a thread of the engine's own.
    connect(m_engine->contentModel(), &QHelpContentModel::contentsCreated, this,
            [this] { m_engine->contentWidget()->expandToDepth(0); });
}

void DocumentationWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void DocumentationWindow::retranslate()
{
    setWindowTitle(tr("Documentation"));
    m_wordsLabel->setText(tr("&Index"));
    m_engine->contentWidget()->setAccessibleName(tr("Contents"));
    if (!m_hasPages)
        m_text->setPlainText(tr("The documentation is not installed. It comes with the package "
                                "libztdrawengine-doc."));
}

} // namespace studio
