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
// studioshots FOLDER --manual makes those of the manual alone, as tools/manual_pictures.sh asks
// for.

namespace {

constexpr int kSettleMs = 150;
const QSize kSmallScreen(1024, 700);
const QSize kManualWindow(1280, 850);

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

/** A picture of the manual: its name, the command before it, and which page of a dialog. */
struct ManualPicture
{
    const char *name;
    const char *command;
    ShapeType selected;
    int page;
};

const std::vector<ManualPicture> kManual = {
    {"text", "text.settings", ShapeType::Text, 1},
    {"code", "code.settings", ShapeType::QRCode, 1},
    {"preferences", "edit.preferences", ShapeType::None, 0}};

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

    /** The pictures of the manual in the language of this look. */
    void runManual()
    {
        m_window.resize(kManualWindow);
        m_window.addSample();
        for (const char *created : {"create.text", "create.code"})
            trigger(created);
        takeDialogs(nullptr);
        select(ShapeType::Text);
        save(m_window, m_folder.filePath(manualName("window")));
        for (const ManualPicture &shown : kManual) {
            select(shown.selected);
            trigger(shown.command);
            for (QWidget *dialog : dialogs()) {
                if (auto *tabs = dialog->findChild<QTabWidget *>())
                    tabs->setCurrentIndex(shown.page);
                save(*dialog, m_folder.filePath(manualName(shown.name)));
                dialog->close();
            }
        }
        trigger("job.preview");
        save(m_window, m_folder.filePath(manualName("preview")));
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

    QString manualName(const char *name) const
    {
        return QStringLiteral("manual-%1-%2.png").arg(m_look.name.left(2), QLatin1String(name));
    }

    /** All that stands open beside the window. */
    QWidgetList dialogs() const
    {
        QWidgetList open;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget != &m_window && widget->isVisible() &&
                (widget->windowFlags() & Qt::Popup) != Qt::Popup)
                open << widget;
        }
        return open;
    }

    /** Pictures of all that stands open, under a name or, without one, none; it is closed. */
    void takeDialogs(const char *name)
    {
        for (QWidget *widget : dialogs()) {
            if (name == nullptr) {
                widget->close();
                continue;
            }
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
        const QString file = QStringLiteral("%1-%2x-%3.png")
                                 .arg(m_look.name)
                                 .arg(qRound(widget.devicePixelRatioF() * 100))
                                 .arg(QString::fromLatin1(name));
        save(widget, m_folder.filePath(file));
    }

    static void save(QWidget &widget, const QString &path)
    {
        settle();
        if (!widget.grab().save(path))
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(path));
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
    const bool isManual = argc == 3 && qstrcmp(argv[2], "--manual") == 0;
    if (argc != 2 && !isManual) {
        std::fprintf(stderr, "usage: studioshots FOLDER [--manual]\n");
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
    if (isManual) {
        for (const Look &look : {Look{LanguageChoice::English, Theme::Light, QStringLiteral("en")},
                                 Look{LanguageChoice::Chinese, Theme::Light, QStringLiteral("zh")}})
            Session(folder, look).runManual();
        return 0;
    }
    for (const Look &look :
         {Look{LanguageChoice::English, Theme::Light, QStringLiteral("en-light")},
          Look{LanguageChoice::English, Theme::Dark, QStringLiteral("en-dark")},
          Look{LanguageChoice::Chinese, Theme::Light, QStringLiteral("zh-light")},
          Look{LanguageChoice::Chinese, Theme::Dark, QStringLiteral("zh-dark")}})
        Session(folder, look).run();
    return 0;
}
