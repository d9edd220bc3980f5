#include <studio/preferences/PreferenceTools.h>
#include <studio/program/Messages.h>
#include <studio/shapes/ShapeItems.h>
#include <studio/window/CommandTable.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>
#include <studio/window/ViewNavigation.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/items/HatchedItems.h>

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTabWidget>

#include <cstdio>

// Pictures of every panel and dialog of the studio, in both languages and both themes, for people
// to look at: studioshots FOLDER. The scale is that of QT_SCALE_FACTOR, and is part of the names.

namespace {

constexpr int kSettleMs = 150;
const QSize kSmallScreen(1024, 700);

/** A way the program can look, and what its pictures are called after. */
struct Look
{
    studio::LanguageChoice language;
    studio::Theme theme;
    QString name;
};

/** A command whose dialog is pictured, and the kind of shape that it needs; `None`: whatever. */
struct Shown
{
    const char *command;
    ShapeType selected;
};

const std::vector<Shown> kShown = {
    {"edit.preferences", ShapeType::None},  {"text.settings", ShapeType::Text},
    {"code.settings", ShapeType::QRCode},   {"arrange.matrix", ShapeType::Rect},
    {"arrange.circle", ShapeType::Rect},    {"arrange.rotate", ShapeType::Rect},
    {"tools.verifyCodes", ShapeType::None}, {"job.preview", ShapeType::None},
    {"job.export", ShapeType::None},        {"help.manual", ShapeType::None},
    {"help.shortcuts", ShapeType::None},    {"help.about", ShapeType::None}};

void settle()
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kSettleMs) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

/** The pictures of one look. */
class Session
{
public:
    Session(const QDir &folder, const Look &look)
        : m_folder(folder), m_look(look), m_window(std::make_unique<studio::ConsoleMessages>())
    {
        studio::PreferenceEdit edit;
        edit.user = m_window.preferences().preferences();
        edit.user.theme = look.theme;
        edit.language = look.language;
        edit.drawing = edit.user.newDrawing;
        m_window.preferences().apply(edit);
        m_window.resize(kSmallScreen);
        m_window.show();
    }

    void run()
    {
        picture(m_window, "empty");
        m_window.addSample();
        for (const char *created : {"create.text", "create.code", "create.barcode"})
            trigger(created);
        takeDialogs("new code");
        trigger("view.orderNumbers");
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Polygon, ShapeType::Line,
                                     ShapeType::Text, ShapeType::QRCode}) {
            select(type);
            pages(m_window, ShapeType2String(type));
        }
        for (const Shown &shown : kShown) {
            select(shown.selected);
            trigger(shown.command);
            takeDialogs(shown.command);
        }
    }

private:
    void trigger(const char *command)
    {
        m_window.commands().named(command)->trigger();
        settle();
    }

    void select(ShapeType type)
    {
        for (studio::ShapeItem *item : studio::shapeItemsOf(*m_window.document().scene())) {
            if (type == ShapeType::None || item->getShapeType() == type) {
                studio::selectOnly(*m_window.document().scene(), {item});
                break;
            }
        }
        settle();
    }

    /** All that stands open beside the window; it is closed afterwards. */
    void takeDialogs(const char *name)
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget == &m_window || !widget->isVisible() ||
                (widget->windowFlags() & Qt::Popup) == Qt::Popup)
                continue;
            if (widget->width() > kSmallScreen.width() || widget->height() > kSmallScreen.height())
                std::printf("%s: %d x %d is too large\n", name, widget->width(), widget->height());
            pages(*widget, name);
            widget->close();
        }
        settle();
    }

    /** One picture for each page of the first set of pages, or one of all. */
    void pages(QWidget &widget, const char *name)
    {
        auto *tabs = widget.findChild<QTabWidget *>();
        const int count = tabs != nullptr ? tabs->count() : 1;
        for (int page = 0; page < count; ++page) {
            if (tabs != nullptr)
                tabs->setCurrentIndex(page);
            settle();
            picture(widget, QByteArray(name) + '-' + QByteArray::number(page));
        }
        if (tabs != nullptr)
            tabs->setCurrentIndex(0);
    }

    void picture(QWidget &widget, const QByteArray &name)
    {
        settle();
        const QString file = QStringLiteral("%1-%2x-%3.png")
                                 .arg(m_look.name)
                                 .arg(qRound(widget.devicePixelRatioF() * 100))
                                 .arg(QString::fromLatin1(name));
        if (!widget.grab().save(m_folder.filePath(file)))
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
    }

    const QDir m_folder;
    const Look m_look;
    studio::MainWindow m_window;
};

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: studioshots FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    QTemporaryDir settings;
    if (!folder.mkpath(QStringLiteral(".")) || !settings.isValid())
        return 1;
    QCoreApplication::setOrganizationName(QStringLiteral("studioshots"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    jobkit::registerHatchedFactories();
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    using studio::LanguageChoice;
    using studio::Theme;
    for (const Look &look :
         {Look{LanguageChoice::English, Theme::Light, QStringLiteral("en-light")},
          Look{LanguageChoice::English, Theme::Dark, QStringLiteral("en-dark")},
          Look{LanguageChoice::Chinese, Theme::Light, QStringLiteral("zh-light")},
          Look{LanguageChoice::Chinese, Theme::Dark, QStringLiteral("zh-dark")}})
        Session(folder, look).run();
    return 0;
}
